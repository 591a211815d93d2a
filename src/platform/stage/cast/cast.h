#pragma once

#include <memory>
#include <string>

#include "platform/stage/stage.h"

/// What a usual machine has, one file for each host. What a host would write appears among the stage's files.
/// A test changes what a host answers by `Stage::when` and `Stage::answer`, after the cast.
namespace foliant::platform::stage {

/// Acrobat 6.0 with its PDF printer, Distiller and the window sender, and the hosts below.
void cast_usual_machine(Stage& stage);

/// The PDF printer. It writes where a started sender was told to save, and Acrobat shows what it wrote.
class PdfPrinter {
  public:
    explicit PdfPrinter(Stage& stage) : stage_(stage) {}

    /// What is typed into the printer's save dialog.
    void save_to(std::string target) { target_ = std::move(target); }
    /// Writes the PDF that the last dialog named and opens Acrobat's window on it. Does nothing when no
    /// dialog was answered.
    void print();

  private:
    Stage& stage_;
    std::string target_;
};

/// Installs the PDF printer. The hosts that print to it share what is returned, which lives no longer than
/// the stage.
std::shared_ptr<PdfPrinter> cast_pdf_printer(Stage& stage);

/// A Distiller, in both of its classes, that announces its job, one page and its end, and makes the output
/// file.
void cast_distiller(Stage& stage);

/// An Acrobat whose documents are valid and have three pages of Letter size, each with two words, those that
/// are inserted besides, and none at first in a document that is created; what it looks for is found, what it
/// saves is written, and a web page opens its window at once.
void cast_acrobat(Stage& stage);

/// A Word whose `PrintOut` makes the output file: the one named, or what the printer makes.
void cast_word(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// An Excel whose workbooks have every sheet and range that is asked for; `PrintOut` of a range makes the
/// output file, as Word's does.
void cast_excel(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// A PowerPoint whose `PrintOut` makes the output file, as Word's does.
void cast_powerpoint(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// A Visio that prints to the PDF printer.
void cast_visio(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// An AutoCAD that has every layout that is asked for, and plots to the PDF printer.
void cast_autocad(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// A Notepad that prints to the PDF printer as soon as it is started with "/p".
void cast_notepad(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// An Access with three printers, "Office printer", "Acrobat PDFWriter" and "Adobe PDF", whose reports are
/// printed where the registry tells PDFWriter to and where the PDF printer was told to save.
void cast_access(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// A Crystal Reports whose reports the PDF printer writes.
void cast_crystal(Stage& stage, const std::shared_ptr<PdfPrinter>& printer);

/// A PDFMaker after whose launch Acrobat shows the document at once.
void cast_pdfmaker(Stage& stage);

/// An Internet Transfer control that is still executing the first time it is asked after a command, and not
/// any more the second time.
void cast_transfer_control(Stage& stage);

}  // namespace foliant::platform::stage
