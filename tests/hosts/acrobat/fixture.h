#pragma once

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/acrobat/application.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/noting_machine.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/pdf_text.h"
#include "hosts/acrobat/structure/pdf.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::acrobat::test {

/// Reads a file as a PDF.
std::shared_ptr<structure::Pdf> read_pdf(const std::filesystem::path& path, const std::string& password = "");

/// The content of every page, its text operands only: "page 1", "page 2" ...
std::vector<std::string> texts(structure::Pdf& pdf);

/// The bookmarks of a document, one line each, indented: "  title -> text of the page", with their counts.
std::vector<std::string> bookmarks(structure::Pdf& pdf);

/// Two pages with three bookmarks, one of them below the first.
PdfText with_bookmarks(const std::string& label);

/// An Acrobat of its own for each test, in the test's process.
class AcrobatTest : public testing::Test {
  protected:
    std::string write(const std::string& name, const std::string& content) const {
        return folder.write(name, content).string();
    }

    automation::Value new_document() { return automation::ObjectPtr(std::make_shared<PdDocument>(program)); }
    automation::Value new_viewer() { return automation::ObjectPtr(std::make_shared<AvDocument>(program)); }

    /// A PDDoc on a new file with that content, "document.pdf" the first time.
    automation::Value document_on(const std::string& content) {
        automation::Value document = new_document();
        document.call("Open", {write(documents_++ == 0 ? "document.pdf"
                                                       : "document-" + std::to_string(documents_) + ".pdf",
                                     content)});
        return document;
    }

    /// A PDDoc on a new document into which these were inserted, one behind the other, bookmarks included.
    automation::Value merged(const std::vector<std::string>& contents);
    /// Saves a document in full and reads it again.
    std::shared_ptr<structure::Pdf> saved(const automation::Value& document, std::int16_t flags = 1) const;

    tests::ScratchFolder folder;
    NotingMachine machine;
    ProgramPtr program = std::make_shared<Program>(machine);
    automation::Value application = make_application(program);

  private:
    int documents_ = 0;
};

}  // namespace foliant::hosts::acrobat::test
