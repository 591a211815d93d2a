#include "hosts/acrobat/front/front.h"

#include <gtest/gtest.h>

#include "automation/coerce.h"
#include "hosts/acrobat/glance/page_count.h"
#include "hosts/acrobat/noting_machine.h"
#include "hosts/acrobat/pdf_text.h"
#include "hosts/mapped_file.h"
#include "support/error_of.h"
#include "support/scratch_folder.h"

namespace foliant::hosts::acrobat::front {
namespace {

using automation::Access;
using automation::Arguments;
using automation::ObjectPtr;
using automation::Value;

using Notes = std::vector<std::string>;
Notes notes;       // of what the engine was asked
Notes taken_over;  // the files' contents

/// An object of the engine's, which notes its calls.
class Noting : public automation::Object {
  public:
    explicit Noting(std::string name) : name_(std::move(name)) {}

    Value invoke(Access, std::string_view member, const Arguments& arguments) override {
        std::string line = name_ + "." + std::string(member);
        for (const automation::Argument& argument : arguments) {
            const auto* const object = argument.value.if_holds<ObjectPtr>();
            const auto* const noting =
                object == nullptr ? nullptr : dynamic_cast<const Noting*>(object->get());
            line += " " + (noting != nullptr   ? noting->name_
                           : object != nullptr ? "stranger"
                                               : automation::to_text(argument.value));
        }
        notes.push_back(line);
        if (member == "GetPDDoc") return ObjectPtr(std::make_shared<Noting>(name_ + "'s"));
        return true;
    }

  private:
    std::string name_;
};

const Engine& noting_engine() {
    static constexpr Engine engine = {[] { return std::string("1"); },
                                      [](std::string_view class_name, Machine&) {
                                          notes.push_back("create " + std::string(class_name));
                                          return ObjectPtr(std::make_shared<Noting>(
                                              std::string(class_name.substr(class_name.find('.') + 1))));
                                      },
                                      [](const std::string& path, posix::FileDescriptor file) {
                                          notes.push_back("take over " + path.substr(path.rfind('/') + 1) +
                                                          (file ? "" : " without a file"));
                                          if (file) taken_over.emplace_back(MappedFile(file.get()).bytes());
                                      }};
    return engine;
}

class FrontTest : public testing::Test {
  protected:
    FrontTest() {
        notes.clear();
        taken_over.clear();
    }

    Value create(std::string_view class_name) { return front->create(class_name); }
    std::string file(const std::string& name, int count) {
        return folder.write(name, test::pages(count).file()).string();
    }
    /// A viewer that shows a file.
    Value shown(const std::string& path) {
        const Value viewer = create("AcroExch.AVDoc");
        EXPECT_EQ(viewer.call("Open", {path, ""}), Value(true));
        return viewer;
    }

    static Value append(const Value& target, const Value& source) {
        const std::int32_t last = *target.call("GetNumPages").if_holds<std::int32_t>() - 1;
        return target.call("InsertPages", {last, source, std::int32_t{0}, source.call("GetNumPages"), true});
    }

    tests::ScratchFolder folder;
    test::NotingMachine machine;
    std::shared_ptr<Front> front = std::make_shared<Front>(machine, noting_engine);
};

TEST_F(FrontTest, CountsPagesWithoutTheEngine) {
    const Value application = create("AcroExch.App");
    const Value unused = create("AcroExch.PDDoc");
    const Value viewer = shown(file("a.pdf", 3));
    const Value document = viewer.call("GetPDDoc");
    EXPECT_EQ(document.call("GetNumPages"), Value(std::int32_t{3}));
    EXPECT_EQ(viewer.call("Close", {true}), Value(true));
    EXPECT_EQ(document.call("getnumpages"), Value(std::int32_t{3}));
    EXPECT_EQ(application.call("Exit"), Value(true));
    EXPECT_EQ(notes, Notes{});
}

TEST_F(FrontTest, LeavesAFileThatIsNotPlainToTheEngine) {
    const Value viewer = create("AcroExch.AVDoc");
    const std::string path = folder.write("a.pdf", "no PDF").string();
    viewer.call("Open", {path, "title"});
    EXPECT_EQ(notes, (Notes{"create AcroExch.AVDoc", "take over a.pdf", "AVDoc.Open " + path + " title"}));
}

TEST_F(FrontTest, LeavesAFileThatIsNotThereToTheEngine) {
    const std::string path = (folder / "a.pdf").string();
    create("AcroExch.AVDoc").call("Open", {path, ""});
    EXPECT_EQ(notes, (Notes{"create AcroExch.AVDoc", "AVDoc.Open " + path + " "}));
}

TEST_F(FrontTest, ABookmarkGetsTheEnginesOwnDocument) {
    const Value document = create("AcroExch.PDDoc");
    const Value bookmark = create("AcroExch.PDBookmark");
    bookmark.call("GetByTitle", {document, "Untitled"});
    EXPECT_EQ(notes.back(), "PDBookmark.GetByTitle PDDoc Untitled");
}

TEST_F(FrontTest, HandsOverWhatIsOpenInTheOrderOfOpening) {
    const Value application = create("AcroExch.App");
    const Value second = create("AcroExch.AVDoc");
    const std::string a = file("a.pdf", 1);
    const std::string b = file("b.pdf", 2);
    const Value first = shown(a);
    second.call("Open", {b, ""});
    const Value document = first.call("GetPDDoc");
    application.call("GetActiveDoc");
    EXPECT_EQ(notes, (Notes{"create AcroExch.AVDoc", "take over a.pdf", "AVDoc.Open " + a + " ",
                            "create AcroExch.AVDoc", "take over b.pdf", "AVDoc.Open " + b + " ",
                            "create AcroExch.App", "AVDoc.GetPDDoc", "App.GetActiveDoc"}));
    notes.clear();
    EXPECT_EQ(document.call("GetNumPages"), Value(true)) << "the engine answers from now on";
    EXPECT_EQ(notes, Notes{"AVDoc's.GetNumPages"});
}

TEST_F(FrontTest, HandsOverADocumentWhoseWindowIsClosed) {
    const std::string path = file("a.pdf", 1);
    const Value viewer = shown(path);
    const Value document = viewer.call("GetPDDoc");
    viewer.call("Close", {true});
    document.call("GetInfo", {"Title"});
    EXPECT_EQ(notes, (Notes{"create AcroExch.AVDoc", "create AcroExch.PDDoc", "take over a.pdf",
                            "PDDoc.Open " + path, "PDDoc.GetInfo Title"}));
}

TEST_F(FrontTest, HandsNothingOverAfterExit) {
    const Value application = create("AcroExch.App");
    const Value viewer = shown(file("a.pdf", 1));
    application.call("Exit");
    viewer.call("IsValid");
    EXPECT_EQ(notes, (Notes{"create AcroExch.App", "create AcroExch.AVDoc", "AVDoc.IsValid"}));
}

TEST_F(FrontTest, GivesTheEngineItsOwnObjects) {
    const Value target = create("AcroExch.PDDoc");
    const Value source = create("AcroExch.PDDoc");
    target.call("InsertPages", {std::int32_t{-1}, source, std::int32_t{0}, std::int32_t{1}, true});
    EXPECT_EQ(notes.back(), "PDDoc.InsertPages -1 PDDoc 0 1 True");
}

TEST_F(FrontTest, MergesPlainFilesWithoutTheEngine) {
    const Value target = create("AcroExch.PDDoc");
    EXPECT_EQ(target.call("Open", {file("a.pdf", 2)}), Value(true));
    for (const int count : {3, 1}) {
        const Value source = create("AcroExch.PDDoc");
        EXPECT_EQ(source.call("Open", {file("b.pdf", count)}), Value(true));
        EXPECT_EQ(source.call("GetNumPages"), Value(std::int32_t{count}));
        EXPECT_EQ(append(target, source), Value(true));
        EXPECT_EQ(source.call("Close"), Value(true));
    }
    const std::filesystem::path path = folder / "all.pdf";
    EXPECT_EQ(target.call("Save", {std::int16_t{1}, path.string()}), Value(true));
    EXPECT_EQ(glance::page_count(tests::read_file(path)), 6);
    EXPECT_EQ(target.call("Close"), Value(true));
    EXPECT_EQ(notes, Notes{});
}

TEST_F(FrontTest, HandsOverWhatItHasMergedWithAFileThatTakesTheEngine) {
    const Value target = create("AcroExch.PDDoc");
    const Value source = create("AcroExch.PDDoc");
    const std::string first = file("a.pdf", 2);
    target.call("Open", {first});
    source.call("Open", {file("b.pdf", 3)});
    append(target, source);
    const std::string odd =
        folder.write("odd.pdf", test::pages(1).add_to_catalogue("/AcroForm << >>").file()).string();
    source.call("Open", {odd});
    EXPECT_EQ(notes, Notes{});
    append(target, source);
    EXPECT_EQ(notes, (Notes{"create AcroExch.PDDoc", "take over a.pdf", "PDDoc.Open " + first,
                            "create AcroExch.PDDoc", "take over odd.pdf", "PDDoc.Open " + odd,
                            "PDDoc.InsertPages 4 PDDoc 0 1 True"}));
    EXPECT_EQ(glance::page_count(taken_over.at(0)), 5);
    EXPECT_EQ(glance::page_count(taken_over.at(1)), 1);
}

TEST_F(FrontTest, HandsOverANewDocumentAsNewUntilItHasPages) {
    const Value target = create("AcroExch.PDDoc");
    EXPECT_EQ(target.call("Create"), Value(true));
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{0}));
    target.call("GetInfo", {"Title"});
    EXPECT_EQ(notes, (Notes{"create AcroExch.PDDoc", "PDDoc.Create", "PDDoc.GetInfo Title"}));
}

TEST_F(FrontTest, SavesALinearisedFileWithoutTheEngine) {
    const Value target = create("AcroExch.PDDoc");
    const Value source = create("AcroExch.PDDoc");
    target.call("Create");
    source.call("Open", {file("b.pdf", 3)});
    append(target, source);
    const auto path = folder / "all.pdf";
    EXPECT_EQ(target.call("Save", {std::int16_t{5}, path.string()}), Value(true));
    const std::string saved = tests::read_file(path);
    EXPECT_NE(saved.substr(0, 100).find("/Linearized 1"), std::string::npos) << saved.substr(0, 100);
    EXPECT_EQ(glance::page_count(saved), 3);
    EXPECT_EQ(notes, Notes());
}

TEST_F(FrontTest, LeavesEverySaveButAFullOneToTheEngine) {
    const Value target = create("AcroExch.PDDoc");
    const Value source = create("AcroExch.PDDoc");
    target.call("Create");
    source.call("Open", {file("b.pdf", 3)});
    append(target, source);
    target.call("Save", {std::int16_t{0}, "all.pdf"});
    EXPECT_EQ(notes.back(), "PDDoc.Save 0 all.pdf");
    EXPECT_EQ(glance::page_count(taken_over.at(0)), 3);
}

TEST_F(FrontTest, ADocumentThatIsClosedIsHandedOverAsNone) {
    const Value document = create("AcroExch.PDDoc");
    document.call("Open", {file("a.pdf", 2)});
    document.call("Close");
    document.call("GetNumPages");
    EXPECT_EQ(notes, (Notes{"create AcroExch.PDDoc", "PDDoc.GetNumPages"}));
}

TEST_F(FrontTest, SaysInWordsWhyAMergeIsNotWritten) {
    const Value target = create("AcroExch.PDDoc");
    const Value source = create("AcroExch.PDDoc");
    target.call("Create");
    source.call("Open", {file("b.pdf", 3)});
    append(target, source);
    EXPECT_EQ(tests::error_number([&] {
                  target.call("Save", {std::int16_t{1}, (folder / "none/all.pdf").string()});
              }),
              76);
    EXPECT_EQ(target.call("GetNumPages"), Value(std::int32_t{3})) << "it is still there";
    EXPECT_EQ(notes, Notes{});
}

TEST_F(FrontTest, LeavesOtherClassesToTheEngine) {
    create("AcroExch.Rect").set("Left", std::int32_t{1});
    EXPECT_EQ(notes, (Notes{"create AcroExch.Rect", "Rect.Left 1"}));
}

}  // namespace
}  // namespace foliant::hosts::acrobat::front
