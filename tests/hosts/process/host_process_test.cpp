#include "hosts/process/host_process.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

#include "automation/coerce.h"
#include "automation/error.h"
#include "hosts/containment/containment.h"
#include "hosts/late_bound.h"
#include "hosts/process/partners.h"

namespace foliant::hosts::process {
namespace {

namespace fs = std::filesystem;
using automation::named;
using automation::to_text;
using automation::Value;
using test::failure_of;

constexpr std::uint64_t mebibyte = 1U << 20U;

std::string content(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

std::string content(const DocumentFile& document) {
    std::string text(100, '\0');
    text.resize(static_cast<std::size_t>(
        std::max<ssize_t>(::pread(document.descriptor.get(), text.data(), text.size(), 0), 0)));
    return text;
}

/// In the host's process.
fs::path last_document;

/// Ends the process it is in, in one way or another.
[[noreturn]] void die(const std::string& how) {
    if (how == "crash") std::raise(SIGSEGV);
    if (how == "terminate") std::thread([] { throw std::runtime_error("nobody catches this"); }).join();
    if (how == "kill") std::raise(SIGKILL);
    std::_Exit(0);
}

std::string dialog_left(Machine& machine) {
    Dialog dialog{"Save", {{.window_class = "Edit", .caption = "", .text = "proposal"}}, {}, false};
    dialog.on_click = [](Dialog& shown, std::size_t index) {
        shown.caption = "Clicked " + std::to_string(index);
        shown.controls[0].enabled = false;
    };
    machine.show(dialog);
    return dialog.caption + " " + dialog.controls[0].text + (dialog.accepted ? " accepted" : "") +
           (dialog.controls[0].enabled ? "" : " disabled");
}

/// What a host does when it is asked to try something.
automation::ObjectPtr make_prober(std::string_view class_name, Machine& machine) {
    if (class_name == "Broken") throw automation::Error(429, "Prober", "Its engine is not there.");
    auto prober = std::make_shared<LateBound>("Prober");
    prober->add_method("Document", {"Path"}, [&](const Bound& given) -> Value {
        const DocumentFile document = machine.open_document(to_text(given[0]));
        last_document = document.path;
        return content(document) +
               (document.place == document.path ? "" : " copied " + content(document.place));
    });
    prober->add_method("Joined", {"Start", "End"}, [&](const Bound& given) -> Value {
        return content(machine.open_document(to_text(given[0]) + to_text(given[1])));
    });
    prober->add_method("Direct", {"Path"}, [](const Bound& given) -> Value {
        const std::string path = to_text(given[0]);
        const posix::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
        return file ? "open" : strerrorname_np(errno);
    });
    prober->add_method("Output", {"Path", "Text", "Commit"}, [&](const Bound& given) -> Value {
        const auto output = machine.make_output(to_text(given[0]));
        output->write(to_text(given[1]));
        if (automation::to_bool(given[2])) output->commit();
        return {};
    });
    prober->add_method("Execute", {"Item"}, [&](const Bound&) -> Value {
        const auto output = machine.make_output(last_document);
        output->write("in place");
        output->commit();
        return {};
    });
    prober->add_method("Die", {"How"}, [](const Bound& given) -> Value { die(to_text(given[0])); });
    prober->add_method("Hog", {"Mebibytes"}, [](const Bound& given) -> Value {
        try {
            std::vector<char> hog(static_cast<std::size_t>(automation::to_int32(given[0])) * mebibyte, 'x');
            return static_cast<std::int32_t>(hog.size() / mebibyte);
        } catch (const std::bad_alloc&) {
            throw automation::Error(5792, "Prober", "The document is damaged.");  // as engines put it
        }
    });
    prober->add_method("Start", {}, [](const Bound&) -> Value {
        const pid_t child = ::fork();
        if (child == 0) ::_exit(0);
        return child > 0 ? "started" : strerrorname_np(errno);
    });
    prober->add_method("Show", {}, [&](const Bound&) -> Value { return dialog_left(machine); });
    prober->add_method("Save", {"Start", "End"}, [&](const Bound& given) -> Value {
        const std::string proposal = to_text(given[0]) + to_text(given[1]);
        Dialog dialog{"Save", {{.window_class = "Edit", .caption = "", .text = "?"}}, {}, false};
        dialog.controls[0].text = proposal;
        dialog.on_click = [&](Dialog& shown, std::size_t) { shown.controls[0].text = proposal + "x"; };
        machine.show(dialog);
        const auto output = machine.make_output(dialog.controls[0].text);
        output->write("saved");
        output->commit();
        return {};
    });
    prober->add_method("Window", {"Caption"}, [&](const Bound& given) -> Value {
        static int closed = 0;
        if (given[0].holds<automation::Missing>()) return std::int32_t{closed};
        return static_cast<std::int32_t>(machine.open_window(to_text(given[0]), [] { ++closed; }));
    });
    prober->add_method("CloseWindow", {"Window"}, [&](const Bound& given) -> Value {
        machine.close_window(static_cast<HostWindow>(automation::to_int32(given[0])));
        return {};
    });
    prober->add_method("Ask", {}, [&](const Bound&) -> Value {
        return machine.default_printer() + (machine.has_printer("Office") ? " has" : " has no") +
               (machine.is_pdf_printer("Office") ? " pdf" : "") + " " + machine.printer_names().at(1) +
               (machine.setting("k", "v") ? " setting" : "");
    });
    prober->add_method("Progress", {"Doing", "Percent"}, [&](const Bound& given) -> Value {
        machine.show_progress(to_text(given[0]), automation::to_int32(given[1]));
        return {};
    });
    prober->add_method("Fail", {"Sentence"}, [&](const Bound& given) -> Value {
        machine.tell_failure(to_text(given[0]));
        return false;
    });
    prober->add_method("Print", {"Path"}, [&](const Bound& given) -> Value {
        fs::path path = to_text(given[0]);
        if (path.is_relative()) {
            path = machine.private_folder() / path;
            std::ofstream(path) << "job";
        }
        machine.print("Office", path, "title");
        return {};
    });
    prober->add_method("HandOn", {"Path", "Name"}, [&](const Bound& given) -> Value {
        fs::path path = to_text(given[0]);
        if (path.is_relative()) {
            path = machine.private_folder() / path;
            std::ofstream(path) << "made";
        }
        machine.show_in_acrobat(path, to_text(given[1]));
        return {};
    });
    prober->add_method("Take", {}, [&](const Bound&) -> Value {
        const auto document = machine.take_handed_over();
        if (!document) return "nothing";
        return document->name + ": " + content("/proc/self/fd/" + std::to_string(document->pdf.get()));
    });
    prober->add_property("Process", [] { return Value(static_cast<std::int32_t>(::getpid())); });
    prober->add_property("Folder", [&] { return Value(machine.private_folder().string()); });
    return prober;
}

constexpr Module prober_module = {
    [] { return std::string("1"); }, make_prober,
    [](const fs::path& folder) {
        return containment::Policy{
            .may_read = {"/usr/lib", "/lib"}, .may_write = {folder}, .may_start = {}, .limits = {}};
    },
    [] { return std::vector<fs::path>{"/etc/group"}; }};

class ProbingMachine : public Machine {
  public:
    explicit ProbingMachine(fs::path folder) : folder_(std::move(folder)) {}

    fs::path private_folder() const override { return folder_; }
    std::uint64_t memory_limit_bytes() const override { return 256 * mebibyte; }
    bool may_read_text() const override { return may_read; }
    bool has_printer(std::string_view name) const override { return name == "Office"; }
    bool is_pdf_printer(std::string_view name) const override { return name == "Office"; }
    std::string default_printer() const override { return "Office"; }
    std::vector<std::string> printer_names() const override { return {"Adobe PDF", "Office"}; }
    void print(std::string_view printer, const fs::path& pdf, std::string_view title) override {
        printed += std::string(printer) + ": " + content(pdf) + ", " + std::string(title);
    }
    void show_progress(std::string_view doing, int percent) override {
        progress += std::string(doing) + " " + std::to_string(percent) + "\n";
    }
    void tell_failure(const std::string& sentence) override { failures.push_back(sentence); }
    void show_in_acrobat(const fs::path& pdf, const std::string& name) override {
        handed_over = HandedOver{name, posix::FileDescriptor(::open(pdf.c_str(), O_RDONLY | O_CLOEXEC))};
    }
    std::optional<HandedOver> take_handed_over() override { return std::exchange(handed_over, std::nullopt); }
    void show(Dialog& dialog) override {
        if (!typed.empty()) dialog.controls.at(0).text = typed;
        if (clicks) dialog.on_click(dialog, 7);
        dialog.accepted = !typed.empty();
    }
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return "secret"; }

    HostWindow open_window(std::string caption, std::function<void()> on_close) override {
        windows[++last_window] = {std::move(caption), std::move(on_close)};
        return last_window;
    }
    void close_window(HostWindow window) override { windows.erase(window); }

    std::map<HostWindow, std::pair<std::string, std::function<void()>>> windows;
    HostWindow last_window = 40;
    std::string printed;
    std::string progress;
    std::vector<std::string> failures;
    std::optional<HandedOver> handed_over;
    std::string typed;
    bool clicks = false;
    bool may_read = true;

  private:
    fs::path folder_;
};

class HostProcessTest : public testing::Test {
  protected:
    HostProcessTest() {
        std::ofstream(folder / "letter") << "words";
        std::ofstream(folder / "second") << "more words";
        std::ofstream(folder / "secret") << "secret";
    }
    ~HostProcessTest() override {
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    Value create() { return host.create("Prober"); }
    std::string path(const std::string& name) const { return (folder / name).string(); }
    Value contained() {
        Value prober = create();
        EXPECT_EQ(prober.call("Document", {path("letter")}), Value("words"));
        return prober;
    }

    static fs::path make_folder() {
        std::string name = (fs::temp_directory_path() / "host-process-XXXXXX").string();
        fs::create_directory(fs::path(::mkdtemp(name.data())) / "private");
        return name;
    }

    fs::path folder = make_folder();
    ProbingMachine machine{folder / "private"};
    HostProcess host{{"Prober", "Probing engine", []() -> const Module& { return prober_module; }}, machine};
};

TEST_F(HostProcessTest, RunsItsObjectsInAnotherProcess) {
    const auto process = automation::to_int32(create().get("Process"));
    EXPECT_NE(process, ::getpid());
    EXPECT_EQ(automation::to_int32(create().get("Process")), process);
    EXPECT_TRUE(host.is_running());
}

TEST_F(HostProcessTest, PassesOnHowFarTheHostIs) {
    const Value prober = create();
    prober.call("Progress", {"Opening", 0});
    prober.call("Progress", {"Opening", 100});
    EXPECT_EQ(machine.progress, "Opening 0\nOpening 100\n");
}

TEST_F(HostProcessTest, EndsAHostThatTellsNoProgress) {
    for (const int percent : {-2, 101})
        EXPECT_NE(failure_of([&] { create().call("Progress", {"Opening", percent}); }), "");
    EXPECT_NE(failure_of([&] { create().call("Progress", {std::string(1000, 'x'), 1}); }), "");
    EXPECT_EQ(machine.progress, "");
}

TEST_F(HostProcessTest, PassesOnWhatTheHostHasNotDoneAsFarAsPeopleRead) {
    create().call("Fail", {"a.png is no image."});
    create().call("Fail", {std::string(100'000, 'x')});
    ASSERT_EQ(machine.failures.size(), 2U);
    EXPECT_EQ(machine.failures[0], "a.png is no image.");
    EXPECT_EQ(machine.failures[1].size(), 8192U);
}

TEST_F(HostProcessTest, PassesOnWhyAnObjectCannotBeMade) {
    EXPECT_EQ(failure_of([&] { host.create("Broken"); }), "429 Its engine is not there.");
    EXPECT_NO_THROW(create());
}

TEST_F(HostProcessTest, PassesOnWhyTheModuleDoesNotLoad) {
    HostProcess broken(
        {"Word", "LibreOffice", []() -> const Module& { throw std::runtime_error("no such library"); }},
        machine);
    EXPECT_EQ(failure_of([&] { broken.create("Word.Application"); }), "51 no such library");
}

TEST_F(HostProcessTest, ReadsTheDocumentThatWasNamed) {
    EXPECT_EQ(create().call("Document", {path("letter")}), Value("words"));
}

TEST_F(HostProcessTest, ReadsFurtherDocumentsFromCopies) {
    EXPECT_EQ(contained().call("Document", {path("second")}), Value("more words copied more words"));
}

TEST_F(HostProcessTest, ReadsNothingThatWasNotNamed) {
    const Value prober = contained();
    EXPECT_THROW(prober.call("Joined", {path("sec"), "ret"}), fs::filesystem_error);
    if (containment::offered().landlock == 0) return;
    EXPECT_EQ(prober.call("Direct", {path("secret")}), Value("EACCES"));
    EXPECT_EQ(prober.call("Direct", {"/etc/passwd"}), Value("EACCES"));
    EXPECT_EQ(prober.call("Direct", {"/proc/self/environ"}), Value("EACCES"));
    EXPECT_EQ(prober.call("Direct", {path("letter")}), Value("open"));
}

TEST_F(HostProcessTest, ReadsWhatTextTakesOnlyInACallThatMayLookAtText) {
    EXPECT_EQ(contained().call("Direct", {"/etc/group"}), Value("open"));
    if (containment::offered().landlock == 0) return;
    machine.may_read = false;
    HostProcess other({"Prober", "", []() -> const Module& { return prober_module; }}, machine);
    const Value prober = other.create("Prober");
    EXPECT_EQ(prober.call("Document", {path("letter")}), Value("words"));
    EXPECT_EQ(prober.call("Direct", {"/etc/group"}), Value("EACCES"));
}

TEST_F(HostProcessTest, MayBeContainedBeforeItHasAnyDocument) {
    if (containment::offered().landlock == 0) GTEST_SKIP() << "nothing guards files here";
    static constexpr Module at_once = {
        prober_module.engine_version, prober_module.create, prober_module.policy, nullptr, nullptr, true};
    EXPECT_EQ(create().call("Direct", {path("secret")}), Value("open"));
    HostProcess other({"Prober", "", []() -> const Module& { return at_once; }}, machine);
    EXPECT_EQ(Value(other.create("Prober")).call("Direct", {path("secret")}), Value("EACCES"));
    EXPECT_EQ(Value(other.create("Prober")).call("Document", {path("letter")}), Value("words copied words"));
}

TEST_F(HostProcessTest, GetsNoDocumentAsLongAsItCannotBeContained) {
    static constexpr Module unbounded = {
        prober_module.engine_version, prober_module.create,
        [](const fs::path&) -> containment::Policy { throw std::runtime_error("the kernel refuses"); }};
    HostProcess other({"Prober", "", []() -> const Module& { return unbounded; }}, machine);
    const Value prober = other.create("Prober");
    for (int attempt = 0; attempt < 2; ++attempt)
        EXPECT_EQ(failure_of([&] { prober.call("Document", {path("letter")}); }), "51 the kernel refuses");
}

TEST_F(HostProcessTest, ReadsNoFolderAndNoPipe) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    for (const auto& [name, reason] :
         {std::pair("pipe", std::errc::not_supported), std::pair("", std::errc::is_a_directory),
          std::pair("none", std::errc::no_such_file_or_directory)}) {
        try {
            create().call("Document", {path(name)});
            ADD_FAILURE() << name;
        } catch (const fs::filesystem_error& error) {
            EXPECT_EQ(error.code(), reason) << name;
        }
    }
}

TEST_F(HostProcessTest, WritesWhatWasNamedAndOnlyWhenItIsComplete) {
    const Value prober = contained();
    prober.call("Output", {path("half.pdf"), "half", false});
    EXPECT_FALSE(fs::exists(folder / "half.pdf"));
    prober.call("Output", {path("out.pdf"), "all of it", true});
    EXPECT_EQ(content(folder / "out.pdf"), "all of it");
}

TEST_F(HostProcessTest, NeverWritesOverItsDocument) {
    const Value prober = contained();
    EXPECT_THROW(prober.call("Output", {path("letter"), "gone", true}), fs::filesystem_error);
    fs::create_hard_link(folder / "letter", folder / "same");
    EXPECT_THROW(prober.call("Output", {path("same"), "gone", true}), fs::filesystem_error);
    EXPECT_EQ(content(folder / "letter"), "words");
}

TEST_F(HostProcessTest, SaysWhyAnOutputCannotBeMade) {
    try {
        create().call("Output", {path("none/out.pdf"), "", true});
        FAIL();
    } catch (const fs::filesystem_error& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_EQ(error.path1(), path("none/out.pdf"));
    }
}

TEST_F(HostProcessTest, StartsNoProcessOfItsOwn) {
    const Value prober = contained();
    if (containment::offered().calls) {
        EXPECT_EQ(prober.call("Start"), Value("EPERM"));
    }
}

TEST_F(HostProcessTest, AsksItsMachine) {
    EXPECT_EQ(create().call("Ask"), Value("Office has pdf Office")) << "settings hold passwords";
}

TEST_F(HostProcessTest, ShowsDialogsAndHearsOfClicks) {
    machine.typed = path("typed.pdf");
    machine.clicks = true;
    const Value prober = contained();
    EXPECT_EQ(prober.call("Show"), Value("Clicked 7 " + path("typed.pdf") + " accepted disabled"));
}

TEST_F(HostProcessTest, WritesToTheNameThatWasTypedButNotToItsOwnProposal) {
    const Value prober = contained();
    machine.typed = path("typed.pdf");
    prober.call("Save", {path("prop"), "osal.pdf"});
    EXPECT_EQ(content(folder / "typed.pdf"), "saved");
    machine.typed.clear();
    EXPECT_THROW(prober.call("Save", {path("prop"), "osal.pdf"}), fs::filesystem_error);
    EXPECT_THROW(prober.call("Save", {"let", "ter.pdf"}), fs::filesystem_error)
        << "nobody pressed the button";
    machine.clicks = true;  // upon which the host proposes something else
    EXPECT_THROW(prober.call("Save", {path("prop"), "osal.pdf"}), fs::filesystem_error);
}

TEST_F(HostProcessTest, WritesToTheUsualNameOfAnOutputWhenThatWasAccepted) {
    fs::current_path(folder);
    const Value prober = contained();
    machine.typed = "letter.pdf";
    prober.call("Save", {"let", "ter.pdf"});
    EXPECT_EQ(content(folder / "letter.pdf"), "saved");
    fs::current_path("/");
}

TEST_F(HostProcessTest, OfATransferThatMayMeanSeveralFilesNoneIsNamed) {
    const Value prober = contained();
    const auto sends = [&] { return prober.call("Joined", {path("sec"), "ond"}); };
    std::ofstream(folder / "second old") << "another";
    prober.call("Fail", {"PUT " + path("second") + " old copy"});
    EXPECT_THROW(sends(), fs::filesystem_error);
    prober.call("Fail", {"PUT \"" + path("second") + "\" \"old copy\""});
    EXPECT_EQ(sends(), Value("more words"));
}

class SavingHostTest : public HostProcessTest {
  protected:
    HostProcess saving_host{
        {"Prober", "Probing engine", []() -> const Module& { return prober_module; }, "Save"}, machine};
    Value saver = saving_host.create("Prober");
};

TEST_F(SavingHostTest, ReplacesADocumentThatItIsToldToSave) {
    saver.call("Document", {path("letter")});
    saver.call("Execute", {"Save"});
    EXPECT_EQ(content(folder / "letter"), "in place");
    saver.call("Document", {path("letter")});
    saver.call("Output", {path("letter"), "named again", true});
    EXPECT_EQ(content(folder / "letter"), "named again");
}

TEST_F(SavingHostTest, ReplacesNoDocumentThatNobodyToldItToSaveSinceItWasOpened) {
    EXPECT_THROW(saver.call("Execute", {"Save"}), fs::filesystem_error);
    saver.call("Document", {path("letter")});
    EXPECT_THROW(saver.call("Execute", {"Close"}), fs::filesystem_error);
    EXPECT_EQ(content(folder / "letter"), "words");
}

TEST_F(HostProcessTest, ThatSavesNothingReplacesNoDocument) {
    const Value prober = contained();
    EXPECT_THROW(prober.call("Execute", {"Save"}), fs::filesystem_error);
    EXPECT_EQ(content(folder / "letter"), "words");
}

TEST_F(HostProcessTest, WritesIntoItsOwnFolderAsItLikes) {
    const Value prober = contained();
    const std::string its = to_text(prober.get("Folder"));
    prober.call("Output", {its + "/job", "content", true});
    EXPECT_EQ(content(its + "/job"), "content");
}

TEST_F(HostProcessTest, OpensWindowsAndHearsThatTheyAreClosed) {
    const Value prober = create();
    EXPECT_EQ(prober.call("Window", {"Viewer"}), Value(std::int32_t{41}));
    prober.call("Window", {"Second"});
    ASSERT_EQ(machine.windows.size(), 2U);
    EXPECT_EQ(machine.windows[41].first, "Viewer");
    machine.windows[41].second();
    EXPECT_EQ(prober.call("Window"), Value(std::int32_t{1}));
    prober.call("CloseWindow", {std::int32_t{42}});
    EXPECT_EQ(machine.windows.count(42), 0U);
}

TEST_F(HostProcessTest, LeavesNoWindowWhenItEnds) {
    {
        HostProcess other({"Prober", "", []() -> const Module& { return prober_module; }}, machine);
        Value(other.create("Prober")).call("Window", {"Viewer"});
        EXPECT_EQ(machine.windows.size(), 1U);
    }
    EXPECT_EQ(machine.windows.size(), 0U);
}

TEST_F(HostProcessTest, PrintsOnlyWhatItHasMade) {
    const Value prober = contained();
    prober.call("Print", {"job.pdf"});
    EXPECT_EQ(machine.printed, "Office: job, title");
    EXPECT_THROW(prober.call("Print", {path("secret")}), fs::filesystem_error);
    EXPECT_THROW(prober.call("Print", {to_text(prober.get("Folder")) + "/../../secret"}),
                 fs::filesystem_error);
    EXPECT_EQ(machine.printed, "Office: job, title");
}

TEST_F(HostProcessTest, HandsOnOnlyWhatItHasMade) {
    const Value prober = contained();
    prober.call("HandOn", {"made.pdf", "letter.pdf"});
    ASSERT_TRUE(machine.handed_over.has_value());
    EXPECT_EQ(machine.handed_over->name, "letter.pdf");
    machine.handed_over.reset();
    EXPECT_THROW(prober.call("HandOn", {path("secret"), "letter.pdf"}), fs::filesystem_error);
    EXPECT_FALSE(machine.handed_over.has_value());
}

TEST_F(HostProcessTest, TakesWhatAnotherHostHandsToItOnce) {
    const Value prober = contained();
    machine.show_in_acrobat(path("letter"), "letter.pdf");
    EXPECT_EQ(prober.call("Take"), Value("letter.pdf: words"));
    EXPECT_EQ(prober.call("Take"), Value("nothing"));
}

TEST_F(HostProcessTest, HasAPrivateFolderInsideThatOfTheMachine) {
    const fs::path its = to_text(create().get("Folder"));
    EXPECT_EQ(its.parent_path(), folder / "private");
}

TEST_F(HostProcessTest, SaysThatItCrashed) {
    const Value prober = contained();
    EXPECT_EQ(failure_of([&] { prober.call("Die", {"crash"}); }),
              "-2147023170 Prober's stand-in, Probing engine, crashed (Segmentation fault) during Die.");
    EXPECT_EQ(failure_of([&] { prober.get("Process"); }),
              "462 Prober's stand-in, Probing engine, crashed (Segmentation fault).");
    EXPECT_FALSE(host.is_running());
}

TEST_F(HostProcessTest, SaysThatAnExceptionOfAThreadEndedIt) {
    EXPECT_EQ(failure_of([&] { create().call("Die", {"terminate"}); }),
              "-2147023170 Prober's stand-in, Probing engine, crashed (Aborted) during Die.");
}

TEST_F(HostProcessTest, SaysThatItWasKilledOrEnded) {
    EXPECT_EQ(failure_of([&] { create().call("Die", {"kill"}); }),
              "-2147023170 Prober's stand-in, Probing engine, was killed during Die.");
    HostProcess other({"Prober", "Probing engine", []() -> const Module& { return prober_module; }}, machine);
    EXPECT_EQ(failure_of([&] { Value(other.create("Prober")).call("Die", {"end"}); }),
              "-2147023170 Prober's stand-in, Probing engine, ended by itself during Die.");
}

#ifndef __SANITIZE_ADDRESS__  // without a limit on memory
TEST_F(HostProcessTest, SaysThatItNeedsMoreMemoryWhateverTheEngineSays) {
    const Value prober = contained();
    EXPECT_EQ(prober.call("Hog", {std::int32_t{100}}), Value(std::int32_t{100}));
    EXPECT_EQ(failure_of([&] { prober.call("Hog", {std::int32_t{300}}); }),
              "7 Prober's stand-in, Probing engine, needs more memory than the limit of 256 MiB during Hog.");
    EXPECT_FALSE(host.is_running());
}
#endif

/// Whether a process is there, and not only waits to be looked at.
bool lives(pid_t process) {
    const std::string status = content("/proc/" + std::to_string(process) + "/stat");
    return !status.empty() && status.find(") Z") == std::string::npos;
}

bool is_gone_soon(pid_t process) {
    for (int i = 0; i < 200 && lives(process); ++i)
        ::usleep(10000);
    return !lives(process);
}

TEST_F(HostProcessTest, EndsWithTheLastThatHoldsIt) {
    pid_t process = 0;
    {
        Value prober;
        {
            HostProcess other({"Prober", "", []() -> const Module& { return prober_module; }}, machine);
            prober = other.create("Prober");
            process = automation::to_int32(prober.get("Process"));
        }
        EXPECT_EQ(prober.get("Process"), Value(std::int32_t{process}));
    }
    EXPECT_TRUE(is_gone_soon(process));
}

TEST_F(HostProcessTest, DoesNotOutliveTheProcessThatMadeIt) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t middle = ::fork();
    if (middle == 0) {
        HostProcess other({"Prober", "", []() -> const Module& { return prober_module; }}, machine);
        const Value prober = other.create("Prober");
        const pid_t process = automation::to_int32(prober.get("Process"));
        if (::write(ends[1], &process, sizeof process) < 0) ::_exit(1);
        ::pause();
    }
    pid_t process = 0;
    ASSERT_EQ(::read(ends[0], &process, sizeof process), static_cast<ssize_t>(sizeof process));
    EXPECT_TRUE(lives(process));
    ::kill(middle, SIGKILL);
    EXPECT_TRUE(is_gone_soon(process));
}

}  // namespace
}  // namespace foliant::hosts::process
