#pragma once

#include <gtest/gtest.h>
#include <string>

#include "automation/object.h"
#include "automation/value.h"
#include "hosts/acrobat/application.h"
#include "hosts/acrobat/av_document.h"
#include "hosts/acrobat/noting_machine.h"
#include "hosts/acrobat/pd_document.h"
#include "hosts/acrobat/pdf_text.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::acrobat::test {

/// An Acrobat of its own for each test, in the test's process.
class AcrobatTest : public testing::Test {
  protected:
    std::string write(const std::string& name, const std::string& content) const {
        return folder.write(name, content).string();
    }

    automation::Value new_document() { return automation::ObjectPtr(std::make_shared<PdDocument>(program)); }
    automation::Value new_viewer() { return automation::ObjectPtr(std::make_shared<AvDocument>(program)); }

    /// A PDDoc on a file with that content.
    automation::Value document_on(const std::string& content) {
        automation::Value document = new_document();
        document.call("Open", {write("document.pdf", content)});
        return document;
    }

    tests::ScratchFolder folder;
    NotingMachine machine;
    ProgramPtr program = std::make_shared<Program>(machine);
    automation::Value application = make_application(program);
};

}  // namespace foliant::hosts::acrobat::test
