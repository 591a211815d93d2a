#pragma once

#include <cstdint>
#include <string>

#include "converters/word_steps.h"
#include "engines/distiller_job.h"
#include "session/session.h"

namespace foliant::converters {

/// The one font of a text.
struct TextFont {
    std::string name;  ///< blank keeps Word's own; otherwise without the blanks around it
    bool bold = false;
    std::int16_t size = 8;   ///< points
    std::int32_t color = 0;  ///< red + green * 256 + blue * 65536; 0 and less keep Word's own
    bool italic = false;
    bool underline = false;
};

/// The space around a text, in points; 0 and less keep Word's own.
struct TextMargins {
    float top = 0;
    float left = 0;
    float right = 0;
    float bottom = 0;
};

/// What the members share that have Word print a text file: the file and how it is set up.
struct TextFileJob {
    std::string file;
    bool landscape = false;
    TextFont font;
    PageNumbers page_numbers;
    TextMargins margins;
    std::string printer;  ///< the printer that Word prints to; blank means `PrinterName`
};

// These three create a Word of their own, and close the text unsaved and quit Word before they return, also
// when they fail. All raise the missing-file error for the text file, and what driving Word and the files
// raises.

/// Prints to a temporary PostScript file and has Distiller convert it. The temporary file is deleted on
/// success only.
void CreatePDFfromTextFile(session::Session& session, const std::string& strPDFFile, const TextFileJob& job,
                           const engines::DistillerOptions& options);

/// Prints to the PDF printer, whose dialogs the window sender answers; on request closes the Acrobat window
/// that shows the PDF afterwards.
void CreatePDFfromTextFile2(session::Session& session, const std::string& strPDFFile, const TextFileJob& job,
                            bool blnCloseAcrobat);

/// Prints to a PostScript file.
void CreatePSfromTextFile(session::Session& session, const std::string& strPSFile, const TextFileJob& job);

/// Has Notepad print the file, in Notepad's own layout, to the PDF printer, which is the user's default
/// printer until the PDF is complete, and no longer, whatever fails. A blank `strDistiller` means
/// `PrinterName`. Raises the missing-file error for `strTextfile`, and 53 where there is no Notepad.
void CreatePDFfromTextFile3(session::Session& session, const std::string& strPDFFile,
                            const std::string& strTextfile, const std::string& strDistiller,
                            bool blnCloseAcrobat);

}  // namespace foliant::converters
