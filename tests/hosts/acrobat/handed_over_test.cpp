#include <fcntl.h>

#include "hosts/acrobat/fixture.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using tests::Names;

/// Another program has made a PDF and wants it shown.
class HandingMachine : public test::NotingMachine {
  public:
    std::optional<HandedOver> take_handed_over() override {
        if (pdf.empty()) return std::nullopt;
        return HandedOver{"letter.pdf", posix::FileDescriptor(
                                            ::open(std::exchange(pdf, {}).c_str(), O_RDONLY | O_CLOEXEC))};
    }
    HostWindow open_window(std::string caption, std::function<void()> on_close) override {
        NotingMachine::open_window(std::move(caption), std::move(on_close));
        return 7;
    }
    void close_window(HostWindow window) override {
        notes.push_back("close window " + std::to_string(window));
    }

    std::string pdf;
};

class HandedOverDocument : public testing::Test {
  protected:
    tests::ScratchFolder folder;
    HandingMachine machine;
    ProgramPtr program = std::make_shared<Program>(machine);
    Value application = make_application(program);
};

TEST_F(HandedOverDocument, IsTheActiveOneInAWindowUntilItIsClosed) {
    machine.pdf = folder.write("made.pdf", test::pages(2).file());
    const Value viewer = application.call("GetActiveDoc");
    EXPECT_EQ(viewer.call("IsValid"), Value(true));
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
    EXPECT_EQ(machine.notes, Names{"window Adobe Acrobat - [letter.pdf]"});
    viewer.call("Close", {true});
    EXPECT_EQ(machine.notes, (Names{"window Adobe Acrobat - [letter.pdf]", "close window 7"}));
    EXPECT_EQ(application.call("GetActiveDoc").call("IsValid"), Value(false)) << "it is handed over once";
}

TEST_F(HandedOverDocument, IsSavedUnderTheNameThatItIsGiven) {
    machine.pdf = folder.write("made.pdf", test::pages(2).file());
    const std::string target = folder / "out.pdf";
    application.call("GetActiveDoc").call("GetPDDoc").call("Save", {std::int16_t{37}, target});
    EXPECT_EQ(test::read_pdf(target)->page_count(), 2);
}

TEST_F(HandedOverDocument, ThatIsNoPdfIsNamed) {
    machine.pdf = folder.write("made.pdf", "nothing of the kind");
    const auto error = tests::error_of([&] { application.call("GetActiveDoc"); });
    EXPECT_TRUE(error.description().starts_with("letter.pdf cannot be opened: ")) << error.description();
}

}  // namespace
}  // namespace foliant::hosts::acrobat
