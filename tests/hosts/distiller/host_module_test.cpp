#include <map>

#include "automation/error.h"
#include "hosts/built_module.h"
#include "hosts/distiller/fixture.h"
#include "hosts/machine.h"
#include "registered/classes.h"

namespace foliant::hosts::distiller {
namespace {

using automation::Value;
using Lines = std::vector<std::string>;

constexpr std::string_view event_bound = registered::event_bound_distiller;
constexpr std::string_view security_capable = registered::security_capable_distiller;

/// A machine with nothing but a private folder and settings.
class BareMachine : public Machine {
  public:
    explicit BareMachine(std::filesystem::path folder) : folder_(std::move(folder)) {}

    std::filesystem::path private_folder() const override { return folder_; }
    std::optional<std::vector<std::string>> scratch_text(const std::string& path) const override {
        const auto found = scratch_texts.find(path);
        return found == scratch_texts.end() ? std::nullopt : std::optional(found->second);
    }
    std::uint64_t memory_limit_bytes() const override { return memory_limit; }
    bool has_printer(std::string_view) const override { return false; }
    bool is_pdf_printer(std::string_view) const override { return false; }
    std::string default_printer() const override { return {}; }
    void print(std::string_view, const std::filesystem::path&, std::string_view) override { FAIL(); }
    void show(Dialog&) override { FAIL(); }
    HostWindow open_window(std::string, std::function<void()>) override { return 0; }
    void close_window(HostWindow) override {}
    std::optional<std::string> setting(std::string_view key, std::string_view value) const override {
        if (!trouble.empty()) throw automation::Error(automation::RuntimeError::path_file_access, trouble);
        const auto found = settings.find(std::string(key) + "|" + std::string(value));
        if (found == settings.end()) return std::nullopt;
        return found->second;
    }

    std::uint64_t memory_limit = usual_memory_limit;
    std::map<std::string, std::string> settings;
    std::string trouble;  ///< with the settings
    std::map<std::string, std::vector<std::string>> scratch_texts;

  private:
    std::filesystem::path folder_;
};

/// Writes notifications down as "OnPageNumber 1".
class Notes : public automation::EventSink {
  public:
    void notify(std::string_view event, std::span<const Value> arguments) override {
        std::string line(event);
        for (const Value& argument : arguments) {
            if (const auto* text = argument.if_holds<std::string>()) line += " " + *text;
            if (const auto* number = argument.if_holds<std::int32_t>()) line += " " + std::to_string(*number);
        }
        lines.push_back(line);
    }
    Lines lines;
};

class DistillerModule : public DistillerTest {
  protected:
    DistillerModule() : machine(scratch) { module = &tests::built_module(DISTILLER_MODULE); }
    std::string in_ps(const std::string& text) const { return write("in.ps", text).string(); }

    BareMachine machine;
    const Module* module = nullptr;
    Notes notes;
};

TEST_F(DistillerModule, NamesTheVersionOfItsEngine) {
    EXPECT_EQ(module->engine_version(), distiller.engine_version());
}

TEST_F(DistillerModule, ConvertsAndNotifies) {
    const Value object = module->create(event_bound, machine);
    const auto listening = object.object().subscribe(notes);
    object.set("bShowWindow", false);
    object.set("bSpoolJobs", true);
    const std::string input = in_ps("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n(hi) = flush showpage\n");
    EXPECT_EQ(object.call("FileToPDF", {input, output.string(), ""}), Value(std::int16_t{1}));
    const std::string both = input + " " + output.string();
    EXPECT_EQ(notes.lines,
              (Lines{"OnJobStart " + both, "OnPercentDone 0", "OnLogMessage hi", "OnPageNumber 1",
                     "OnPercentDone 99", "OnPercentDone 100", "OnJobDone " + both}));
    EXPECT_EQ(facts_of(output).pages, 1);
    EXPECT_FALSE(facts_of(output).encrypted);
}

TEST_F(DistillerModule, NotifiesOfAFailedJobAndReturnsItsStatus) {
    const Value object = module->create(event_bound, machine);
    const auto listening = object.object().subscribe(notes);
    const std::string input = in_ps("%!\nfoo\n");
    EXPECT_EQ(object.call("FileToPDF", {input, output.string(), ""}), Value(std::int16_t{-1}));
    EXPECT_EQ(notes.lines.back(), "OnJobFail " + input + " " + output.string());
    EXPECT_EQ(notes.lines[2], "OnLogMessage %%[ Error: undefined; OffendingCommand: foo ]%%");
}

TEST_F(DistillerModule, RaisesAFailureThatNobodyWouldHearOf) {
    const Value object = module->create(security_capable, machine);
    const std::string input = in_ps("%!\nfoo\n");
    try {
        object.call("FileToPDF2", {input, output.string(), "", true});
        FAIL() << "nothing was raised";
    } catch (const automation::Error& error) {
        EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80004005U));
        EXPECT_EQ(error.source(), "Acrobat Distiller");
        EXPECT_NE(error.description().find("undefined in foo"), std::string::npos);
    }
}

#ifndef __SANITIZE_ADDRESS__  // which knows no limit
TEST_F(DistillerModule, RaisesOutOfMemoryAlsoToThoseWhoListen) {
    machine.memory_limit = std::uint64_t{200} << 20U;
    const Value object = module->create(event_bound, machine);
    const auto listening = object.object().subscribe(notes);
    const std::string input = in_ps("%!\n[ { 65000 string } loop\n");
    try {
        object.call("FileToPDF", {input, output.string(), ""});
        FAIL() << "nothing was raised";
    } catch (const automation::Error& error) {
        EXPECT_TRUE(error.is(automation::RuntimeError::out_of_memory));
        EXPECT_NE(error.description().find("more memory than 200 MiB, which is what a job may take."),
                  std::string::npos)
            << error.description();
    }
    EXPECT_EQ(notes.lines.back(), "OnJobFail " + input + " " + output.string());
}
#endif

TEST_F(DistillerModule, RejectsAnEmptyPathByItsStatus) {
    const Value object = module->create(event_bound, machine);
    EXPECT_EQ(object.call("FileToPDF", {"", output.string(), ""}), Value(std::int16_t{0}));
    EXPECT_EQ(object.call("FileToPDF", {in_ps("%!\n"), "", ""}), Value(std::int16_t{0}));
}

TEST_F(DistillerModule, TakesADriverFromTheMachineAndNotFromTheDisk) {
    const std::string driver = (folder / "book.ps").string();
    const std::string part = in_ps(plain_pages(2));
    const Value object = module->create(event_bound, machine);
    machine.scratch_texts[driver] = driver_lines({part});
    EXPECT_EQ(object.call("FileToPDF", {driver, output.string(), ""}), Value(std::int16_t{1}));
    EXPECT_EQ(facts_of(output).pages, 2);
    EXPECT_FALSE(std::filesystem::exists(driver));
}

TEST_F(DistillerModule, ProtectsAsTheSettingsSay) {
    const std::string key = "Software\\Adobe\\Acrobat Distiller\\6.0\\Security|";
    machine.settings = {
        {key + "OpenPassword", "open"}, {key + "AllowCopying", "1"}, {key + "AllowPrinting", "0"}};
    const Value object = module->create(security_capable, machine);
    EXPECT_EQ(object.call("FileToPDF2", {in_ps(plain_pages(1)), output.string(), "", true}),
              Value(std::int16_t{1}));
    const std::string facts = output_of("qpdf --password=open --show-encryption '" + output.string() + "'");
    EXPECT_NE(facts.find("\nextract for any purpose: allowed"), std::string::npos);
    EXPECT_NE(facts.find("\nprint low resolution: not allowed"), std::string::npos);
}

TEST_F(DistillerModule, DoesNotProtectWhenItIsNotAskedTo) {
    const Value object = module->create(security_capable, machine);
    object.call("FileToPDF2", {in_ps(plain_pages(1)), output.string(), "", false});
    EXPECT_FALSE(facts_of(output).encrypted);
}

TEST_F(DistillerModule, MakesNoPdfWhenItsSecuritySettingsCannotBeRead) {
    machine.trouble = "The settings file registry.json cannot be understood.";
    const Value object = module->create(security_capable, machine);
    write("out.pdf", "old");
    EXPECT_THROW(object.call("FileToPDF2", {in_ps(plain_pages(1)), output.string(), "", true}),
                 automation::Error);
    EXPECT_EQ(std::filesystem::file_size(output), 3U);
    EXPECT_EQ(tests::names_in(folder), (Lines{"in.ps", "out.pdf", "scratch"}));
}

TEST_F(DistillerModule, RefusesAPermissionThatIsNeitherGivenNorDenied) {
    machine.settings = {{"Software\\Adobe\\Acrobat Distiller\\6.0\\Security|AllowCopying", "maybe"}};
    const Value object = module->create(security_capable, machine);
    try {
        object.call("FileToPDF2", {in_ps(plain_pages(1)), output.string(), "", true});
        FAIL() << "nothing was raised";
    } catch (const automation::Error& error) {
        EXPECT_TRUE(error.is(automation::RuntimeError::type_mismatch));
        EXPECT_EQ(error.description(),
                  "The Distiller security setting AllowCopying is \"maybe\". Set it to 1 (allowed) or 0 (not "
                  "allowed) "
                  "under Software\\Adobe\\Acrobat Distiller\\6.0\\Security.");
    }
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(DistillerModule, LivesUntilItsJobHasEndedEvenWhenAListenerLetsGo) {
    struct LetsGo : automation::EventSink {
        void notify(std::string_view, std::span<const Value>) override {
            listening.reset();
            object = {};
        }
        Value object;
        std::unique_ptr<automation::Subscription> listening;
    } sink;
    const long before = automation::Object::live_objects();
    sink.object = module->create(event_bound, machine);
    sink.listening = sink.object.object().subscribe(sink);
    automation::Object& object = sink.object.object();
    object.invoke(automation::Access::call, "FileToPDF", {in_ps(plain_pages(1)), output.string(), ""});
    EXPECT_TRUE(std::filesystem::exists(output));
    EXPECT_EQ(automation::Object::live_objects(), before);
}

TEST_F(DistillerModule, HasItsMembersInAnyCaseAndNoOthers) {
    const Value object = module->create(event_bound, machine);
    object.set("BSHOWWINDOW", std::int16_t{-1});
    EXPECT_EQ(object.get("bshowwindow"), Value(true));
    const auto raised = [&](const std::function<void()>& action) {
        try {
            action();
        } catch (const automation::Error& error) {
            return error.number();
        }
        return 0;
    };
    EXPECT_EQ(raised([&] { object.call("CreatePDF"); }), 438);
    EXPECT_EQ(raised([&] { object.set("FileToPDF", 1); }), 438);
    EXPECT_EQ(raised([&] { object.call("FileToPDF", {"a.ps"}); }), 450);
    EXPECT_EQ(raised([&] { module->create("Word.Application", machine); }), 429);
}

}  // namespace
}  // namespace foliant::hosts::distiller
