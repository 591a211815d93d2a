#pragma once

#include <cstdint>
#include <string>

#include "engines/distiller_job.h"
#include "session/session.h"

namespace foliant::converters {

/// What the members of the PowerPoint family share.
struct SlidesJob {
    std::string presentation;       ///< path of the presentation
    std::int32_t first_slide = -1;  ///< passed to PowerPoint as it is, as the last one is
    std::int32_t last_slide = -1;
    bool horizontal = false;  ///< false turns the slides upright, whatever they were before
    std::string printer;      ///< the printer that PowerPoint prints to; blank means `PrinterName`
};

// Each of the three creates its own PowerPoint, visible but minimised, and closes the presentation and quits
// PowerPoint before it returns, also when it fails. All raise the missing-file error for the presentation, and
// what driving PowerPoint and the files raises.

/// Prints to a temporary PostScript file and has Distiller convert it. The temporary file is deleted on
/// success only.
void CreatePDFfromPowerPoint(session::Session& session, const std::string& strPDFFile, const SlidesJob& job,
                             const engines::DistillerOptions& options);

/// Prints to the PDF printer, whose dialogs the window sender answers; on request closes the Acrobat window
/// that shows the PDF afterwards.
void CreatePDFfromPowerPoint2(session::Session& session, const std::string& strPDFFile, const SlidesJob& job,
                              bool blnCloseAcrobat);

/// Prints to a PostScript file.
void CreatePSfromPowerPoint(session::Session& session, const std::string& strPSFile, const SlidesJob& job);

}  // namespace foliant::converters
