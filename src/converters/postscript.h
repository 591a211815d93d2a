#pragma once

#include <string>

#include "automation/value.h"
#include "engines/distiller_job.h"
#include "session/session.h"

/// One unit per host application family: each member of `BuildPDF` that turns documents into PostScript or
/// PDF, as the sequence of steps that it is. Knows session/ and engines/.
namespace foliant::converters {

/// Converts one PostScript file, which stays in place. A blank `strDistiller` holds `PrinterName` afterwards.
/// Raises the missing-file error for `strPSFile`, and what deleting the old PDF or driving Distiller raises.
void CreatePDFfromPS(session::Session& session, const std::string& strPDFFile, const std::string& strPSFile,
                     std::string& strDistiller, const engines::DistillerOptions& options);

/// Converts several PostScript files, in array order, into one PDF, through a driver file beside it that is
/// deleted at the end. Files that do not exist are skipped silently. After a failure the driver file may
/// remain. A blank `strDistiller` holds `PrinterName` afterwards. Raises 13 unless `varPSFiles` is an array,
/// 6 for more than 32767 entries, 5 for a `strPDFFile` shorter than three characters.
void CreatePDFfromMultiPS(session::Session& session, const std::string& strPDFFile,
                          const automation::Value& varPSFiles, std::string& strDistiller,
                          const engines::DistillerOptions& options);

}  // namespace foliant::converters
