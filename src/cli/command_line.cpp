#include <algorithm>
#include <sstream>

#include "automation/text.h"
#include "cli/exit_codes.h"
#include "cli/member_command.h"
#include "cli/request.h"
#include "core/members.h"
#include "foliant_version.h"

namespace foliant::cli {

using core::Member;
using core::MemberKind;

namespace {

constexpr const char* examples =
    "Examples:\n"
    "  foliant CreatePDFfromWord letter.pdf letter.docx\n"
    "  foliant CreatePDFfromWord letter.pdf letter.docx --landscape --pages 1-3\n"
    "  foliant CreatePDFfromWord2 letter.pdf letter.docx --page-number-in-footer\n"
    "  foliant CreatePDFfromMultiPS book.pdf cover.ps text.ps index.ps\n"
    "  foliant rehearse CreatePDFfromWord letter.pdf letter.docx    (shows every step, does none)\n"
    "  foliant hosts                                                (which engines are there)\n";

std::string exit_codes_text() {
    std::string text = "Exit codes:\n";
    for (const auto& row : exit_code_table) {
        std::string code = std::to_string(row.code);
        text += "  " + code + std::string(5 - code.size(), ' ') + row.meaning + "\n";
    }
    return text;
}

/// Examples first: most people look for the line that they want to type.
class ExamplesFirst : public CLI::Formatter {
  public:
    ExamplesFirst() { column_width(36); }
    std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override {
        const bool whole = app->get_parent() == nullptr;
        return (whole ? std::string(examples) + "\n" : "") + CLI::Formatter::make_help(app, name, mode);
    }
};

void add_call_options(CLI::App& app, CallOptions& options) {
    app.add_flag("--json", options.json, "print result, by-reference values, events and error as JSON");
    app.add_flag("-q,--quiet", options.quiet, "no progress and no closing line; errors still show");
    app.add_flag("--no-clobber", options.no_clobber, "replace no file that exists");
    app.add_option("--timeout", options.timeout_seconds, "end the call after that many seconds [no limit]")
        ->type_name("SECONDS")
        ->check(CLI::NonNegativeNumber);
    app.add_option("--temp-path", options.temp_path,
                   "folder for temporary files [a private one, removed at the end]")
        ->type_name("FOLDER");
}

/// All sub-commands, and what the chosen one was given.
class CommandLine {
  public:
    explicit CommandLine(const std::vector<std::string>& words);

    Parsed parse(const std::function<std::string(const std::string&)>& ask_password);

  private:
    enum class Show { available, later };
    void add_members(CLI::App& parent, Request::Action action, Show which);
    CLI::App& add_member(CLI::App& parent, Request::Action action, const Member& member);
    void add_registry();
    void add_tools();
    bool is_mentioned(std::string_view name) const;
    Request build(const std::function<std::string(const std::string&)>& ask_password);

    std::vector<std::string> words_;
    Request request_;
    std::vector<std::unique_ptr<MemberCommand>> member_commands_;
    const MemberCommand* chosen_ = nullptr;
    std::string folder_;
    CLI::App app_{"foliant turns documents into PDF, and works on PDFs, with one call each.", "foliant"};
};

CommandLine::CommandLine(const std::vector<std::string>& words) : words_(words) {
    app_.formatter(std::make_shared<ExamplesFirst>());
    app_.footer("\n" + exit_codes_text() +
                "\nfoliant MEMBER --help explains one member; foliant man prints the manual.");
    app_.set_version_flag("--version", "foliant " FOLIANT_VERSION);
    app_.require_subcommand(1);
    app_.fallthrough();
    add_call_options(app_, request_.options);
    add_members(app_, Request::Action::call, Show::available);
    auto* rehearse =
        app_.add_subcommand("rehearse", "Shows every step that a member would take, and takes none.");
    rehearse->group("Tools")->require_subcommand(1)->fallthrough();
    if (is_mentioned("rehearse")) {
        add_members(*rehearse, Request::Action::rehearse, Show::available);
        add_members(*rehearse, Request::Action::rehearse, Show::later);
    }
    add_registry();
    add_tools();
    add_members(app_, Request::Action::call, Show::later);
}

/// Whether the command line names that sub-command: only then are its options built, which keeps the start
/// quick.
bool CommandLine::is_mentioned(std::string_view name) const {
    return std::any_of(words_.begin(), words_.end(),
                       [&](const std::string& word) { return automation::equal_ignoring_case(word, name); });
}

void CommandLine::add_members(CLI::App& parent, Request::Action action, Show which) {
    const bool names_one = std::any_of(core::members.begin(), core::members.end(),
                                       [&](const Member& member) { return is_mentioned(member.name); });
    for (const core::FamilyHeading& family : core::families) {
        const std::string group(which == Show::later ? "Members that a later version brings"
                                                     : family.heading);
        for (const Member& member : core::members) {
            if (member.family != family.family || member.kind == MemberKind::property_put) continue;
            if (member.available != (which == Show::available)) continue;
            if (!names_one || is_mentioned(member.name)) add_member(parent, action, member).group(group);
        }
    }
}

/// Adds the sub-command of a member, and its options if it is the one that is called.
CLI::App& CommandLine::add_member(CLI::App& parent, Request::Action action, const Member& member) {
    auto* command = parent.add_subcommand(std::string(member.name), std::string(member.help));
    command->ignore_case()->fallthrough();
    if (!is_mentioned(member.name)) return *command;
    member_commands_.push_back(std::make_unique<MemberCommand>(*command, member));
    command->final_callback([this, action, &member, added = member_commands_.back().get()] {
        request_.action = action;
        request_.member = &member;
        chosen_ = added;
    });
    return *command;
}

void CommandLine::add_registry() {
    auto* registry = app_.add_subcommand(
        "registry", "Reads and changes the settings store that stands in for the Windows registry.");
    registry->group("Tools")->require_subcommand(1);
    const auto add = [&](const char* name, const char* help, Request::Action action,
                         std::initializer_list<const char*> words) {
        auto* command = registry->add_subcommand(name, help);
        const std::size_t count = words.size();
        command->add_option("words", request_.words, "")
            ->type_name(count == 3   ? "KEY NAME TEXT"
                        : count == 2 ? "KEY NAME"
                                     : "")
            ->expected(static_cast<int>(count))
            ->required(count > 0);
        command->final_callback([this, action] { request_.action = action; });
    };
    auto* list = registry->add_subcommand("list", "Lists every value.");
    list->final_callback([this] { request_.action = Request::Action::registry_list; });
    add("get", "Prints a text value; NAME may be \"\".", Request::Action::registry_get, {"KEY", "NAME"});
    add("set", "Writes a text value; NAME may be \"\".", Request::Action::registry_set,
        {"KEY", "NAME", "TEXT"});
    add("remove", "Removes a value.", Request::Action::registry_remove, {"KEY", "NAME"});
}

void CommandLine::add_tools() {
    auto* hosts =
        app_.add_subcommand("hosts", "Lists the host programs: which engine stands in, which version.");
    hosts->group("Tools")->fallthrough()->final_callback(
        [this] { request_.action = Request::Action::hosts; });
    auto* completion = app_.add_subcommand("completion", "Prints the completion script of a shell.");
    completion->group("Tools")->final_callback([this] { request_.action = Request::Action::completion; });
    completion->add_option("shell", request_.words, "bash, zsh or fish")
        ->type_name("SHELL")
        ->expected(1)
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish"}));
    auto* manual = app_.add_subcommand("man", "Prints the manual page.");
    manual->group("Tools")->final_callback([this] { request_.action = Request::Action::manual; });
}

Request CommandLine::build(const std::function<std::string(const std::string&)>& ask_password) {
    if (chosen_ != nullptr) request_.arguments = chosen_->arguments(ask_password);
    return request_;
}

Parsed CommandLine::parse(const std::function<std::string(const std::string&)>& ask_password) {
    Parsed parsed;
    try {
        std::vector<std::string> reversed(words_.rbegin(), words_.rend());
        app_.parse(std::move(reversed));
        parsed.request = build(ask_password);
    } catch (const CLI::Success& shown) {
        std::ostringstream out;
        app_.exit(shown, out, out);
        parsed.output = out.str();
    } catch (const CLI::ParseError& error) {
        const auto chosen = app_.get_subcommands();
        parsed.error = std::string("foliant: ") + error.what() + "\nSee 'foliant" +
                       (chosen.empty() ? "" : " " + chosen.front()->get_name()) + " --help'.\n";
        parsed.exit_code = exit_usage;
    }
    return parsed;
}

}  // namespace

Parsed parse(const std::vector<std::string>& words,
             const std::function<std::string(const std::string& prompt)>& ask_password) {
    return CommandLine(words).parse(ask_password);
}

}  // namespace foliant::cli
