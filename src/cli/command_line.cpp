#include <algorithm>
#include <chrono>
#include <sstream>

#include "automation/error.h"
#include "automation/text.h"
#include "cli/exit_codes.h"
#include "cli/member_command.h"
#include "cli/option_names.h"
#include "cli/quantities.h"
#include "cli/report.h"
#include "cli/request.h"
#include "cli/secrets.h"
#include "cli/suggestions.h"
#include "core/members.h"
#include "core/parameter_help.h"
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
    /// What an option takes, without what it excludes, which the parser says when it matters.
    std::string make_option_opts(const CLI::Option* option) const override {
        const bool takes_value = option->get_items_expected_max() > 0;
        return (takes_value && !option->get_type_name().empty() ? " " + option->get_type_name() : "") +
               (option->get_required() ? " REQUIRED" : "");
    }
};

/// An option whose text stands for a quantity; `read` says which, or nothing.
template <class Quantity, class Read>
CLI::Option* add_quantity(CLI::App& app, const char* name, Quantity& quantity, Read read,
                          const char* what_it_is, const char* help) {
    return app.add_option_function<std::string>(
        name,
        [name, &quantity, read, what_it_is](const std::string& text) {
            const auto value = read(text);
            if (!value) throw CLI::ValidationError(name, "'" + text + "' is not " + what_it_is);
            // NOLINTNEXTLINE(bugprone-optional-value-conversion): not every quantity is an optional one
            quantity = *value;
        },
        help);
}

void add_call_options(CLI::App& app, CallOptions& options) {
    app.add_flag("--json", options.json, "print the outcome as JSON, a failure too");
    app.add_flag("-q,--quiet", options.quiet, "no progress and no closing line; errors still show");
    app.add_flag("-v,--verbose", options.verbose,
                 "show what the call does outside, as it does it; alone: the version");
    app.add_option("--log", options.log_file, "write that to a file as well, at its end")->type_name("FILE");
    app.add_flag("--no-clobber", options.no_clobber, "replace no file that exists");
    add_quantity(app, "--timeout", options.timeout_seconds, seconds_in,
                 "a time such as 30, 2.5s, 5m or 1h, or none",
                 "end the call after that time, such as 30, 2.5s, 5m or 1h [none]")
        ->type_name("TIME");
    add_quantity(app, "--memory", options.memory_bytes, bytes_in, "a size such as 512M, 2G or 1.5G, or none",
                 "end the call when its processes need more, such as 512M or 2G [half of the machine's, at "
                 "most 2G]")
        ->type_name("SIZE");
    app.add_option("--temp-path", options.temp_path,
                   "folder for temporary files [a private one, removed at the end]")
        ->type_name("FOLDER");
}

Deadline deadline_after(std::chrono::steady_clock::time_point begin, double seconds) {
    constexpr double no_end_in_sight = 1e9;  // 30 years
    if (seconds <= 0 || seconds > no_end_in_sight) return std::nullopt;
    const std::chrono::duration<double> time(seconds);
    return begin + std::chrono::duration_cast<std::chrono::steady_clock::duration>(time);
}

/// All sub-commands, and what the chosen one was given.
class CommandLine {
  public:
    explicit CommandLine(const std::vector<std::string>& words);

    Parsed parse(const AskPassword& ask_password);

  private:
    void add_members(CLI::App& parent, Request::Action action);
    CLI::App& add_member(CLI::App& parent, Request::Action action, const Member& member);
    void add_registry();
    void complete_set(const AskPassword& ask_password);
    void add_tools();
    void add_other_tools();
    bool is_mentioned(std::string_view name) const;
    bool begins_with_member() const;
    const Member* named_member() const;
    std::string problem_of(const CLI::ParseError& error) const;
    std::string advice_on(const CLI::ParseError& error) const;
    void fail(Parsed& parsed, int exit_code, const std::string& problem, const std::string& advice) const;
    Request build(const AskPassword& ask_password);

    const std::chrono::steady_clock::time_point begun_ = std::chrono::steady_clock::now();
    std::vector<std::string> words_;
    Request request_;
    std::vector<std::unique_ptr<MemberCommand>> member_commands_;
    const MemberCommand* chosen_ = nullptr;
    std::string secret_file_;
    bool secret_asked_ = false;
    CLI::App app_{"foliant turns documents into PDF, and works on PDFs, with one call each.", "foliant"};
};

bool takes_password(const Member* member) {
    if (member == nullptr) return false;
    const auto parameters = member->parameters();
    return std::any_of(parameters.begin(), parameters.end(), [&](const core::Parameter& parameter) {
        return core::parameter_role(*member, parameter) == core::ParameterRole::password;
    });
}

/// An option of a member that is written in another case, in its own. The parser would compare each of its options with
/// all others in small letters.
std::string in_own_case(const Member& member, const std::string& word) {
    if (!word.starts_with("--")) return word;
    const std::string_view given = std::string_view(word).substr(2, word.find('=') - 2);
    for (const core::Parameter& parameter : member.parameters()) {
        const std::string name = option_name(parameter.name);
        if (automation::equal_ignoring_case(given, name) ||
            automation::equal_ignoring_case(given, parameter.name))
            return "--" + name + word.substr(2 + given.size());
    }
    return word;
}

/// "help", "help MEMBER" and "-v" alone, in the words that have always been there for them.
std::vector<std::string> in_usual_words(std::vector<std::string> words) {
    if (words == std::vector<std::string>{"-v"}) return {"--version"};
    if (words.empty() || words.front() != "help") return words;
    words.erase(words.begin());
    words.emplace_back("--help");
    return words;
}

CommandLine::CommandLine(const std::vector<std::string>& words) : words_(in_usual_words(words)) {
    app_.formatter(std::make_shared<ExamplesFirst>());
    app_.footer("\n" + exit_codes_text() +
                "\nfoliant MEMBER --help explains one member; foliant man prints the manual.");
    app_.set_version_flag("--version", "foliant " FOLIANT_VERSION);
    app_.require_subcommand(1);
    app_.fallthrough();
    add_call_options(app_, request_.options);
    add_members(app_, Request::Action::call);
    if (!begins_with_member()) add_tools();
    const auto end_of_options = std::find(words_.begin(), words_.end(), "--");
    for (const auto& called : member_commands_)
        for (auto word = words_.begin(); word != end_of_options; ++word)
            *word = in_own_case(called->member(), *word);
}

void CommandLine::add_tools() {
    auto* rehearse =
        app_.add_subcommand("rehearse", "Shows every step that a member would take, and takes none.");
    rehearse->group("Tools")->require_subcommand(1)->fallthrough();
    if (is_mentioned("rehearse")) add_members(*rehearse, Request::Action::rehearse);
    add_registry();
    add_other_tools();
}

/// What is behind a member's name is its own, whatever it is called.
bool CommandLine::begins_with_member() const {
    return !words_.empty() && std::ranges::any_of(core::members, [&](const Member& member) {
        return automation::equal_ignoring_case(words_.front(), member.name);
    });
}

/// Whether the command line names that sub-command: only then are its options built, which keeps the start
/// quick.
bool CommandLine::is_mentioned(std::string_view name) const {
    return std::any_of(words_.begin(), words_.end(),
                       [&](const std::string& word) { return automation::equal_ignoring_case(word, name); });
}

void CommandLine::add_members(CLI::App& parent, Request::Action action) {
    const bool names_one = std::any_of(core::members.begin(), core::members.end(),
                                       [&](const Member& member) { return is_mentioned(member.name); });
    for (const core::FamilyHeading& family : core::families) {
        for (const Member& member : core::members) {
            if (member.family != family.family || member.kind == MemberKind::property_put) continue;
            if (!names_one || is_mentioned(member.name))
                add_member(parent, action, member).group(std::string(family.heading));
        }
    }
}

/// Adds the sub-command of a member, and its options if it is the one that is called.
CLI::App& CommandLine::add_member(CLI::App& parent, Request::Action action, const Member& member) {
    auto* command = parent.add_subcommand(std::string(member.name), std::string(member.help));
    command->fallthrough();
    if (!is_mentioned(member.name)) return *command;
    command->ignore_case();
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
    registry->group("Tools")->require_subcommand(1)->fallthrough();
    registry->footer(
        "\nKEY begins with HKEY_CURRENT_USER (HKCU) or HKEY_LOCAL_MACHINE (HKLM); its parts are "
        "separated by \\.\nNAME may be \"\", which is a key's unnamed value. The settings are kept "
        "in\n$XDG_CONFIG_HOME/foliant/registry.json, usually ~/.config/foliant/registry.json.");
    const auto add = [&](const char* name, const char* help, Request::Action action) {
        auto* command = registry->add_subcommand(name, help)->fallthrough();
        command->final_callback([this, action] { request_.action = action; });
        return command;
    };
    const auto add_names = [&](CLI::App* command, const char* words, int least, int most) {
        command->add_option("words", request_.words)->type_name(words)->expected(least, most)->required();
    };
    add("list", "Lists every value; passwords are not shown.", Request::Action::registry_list);
    add_names(add("get", "Prints a text value; a password is not shown.", Request::Action::registry_get),
              "KEY NAME", 2, 2);
    auto* set = add("set", "Writes a text value.", Request::Action::registry_set);
    add_names(set, "KEY NAME [TEXT]", 2, 3);
    auto* file = set->add_option("--from-file", secret_file_,
                                 "read the text from the first line of a file, - for standard input, so that "
                                 "nobody sees it on the command line");
    file->type_name("FILE");
    set->add_flag("--ask", secret_asked_, "ask for the text on the terminal")->excludes(file);
    add_names(add("remove", "Removes a value, a built-in one too.", Request::Action::registry_remove),
              "KEY NAME", 2, 2);
    add_names(add("reset", "Brings back what is built in.", Request::Action::registry_reset), "KEY NAME", 2,
              2);
}

/// The text that `registry set` writes comes from one of three places.
void CommandLine::complete_set(const AskPassword& ask_password) {
    const bool given = request_.words.size() == 3;
    const bool elsewhere = !secret_file_.empty() || secret_asked_;
    if (given == elsewhere) {
        throw CLI::ValidationError(given ? "the text is given twice"
                                         : "TEXT is required, or --from-file, or --ask");
    }
    const Deadline& deadline = request_.options.deadline;
    if (!secret_file_.empty()) request_.words.push_back(read_secret_file(secret_file_, deadline));
    if (secret_asked_) request_.words.push_back(ask_password(request_.words.back() + ": ", deadline));
}

void CommandLine::add_other_tools() {
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
    app_.add_subcommand("help", "Explains a member or a tool: foliant help CreatePDFfromWord.")
        ->group("Tools");
    auto* manual = app_.add_subcommand("man", "Prints the manual page.");
    manual->group("Tools")->final_callback([this] { request_.action = Request::Action::manual; });
}

Request CommandLine::build(const AskPassword& ask_password) {
    request_.options.deadline = deadline_after(begun_, request_.options.timeout_seconds);
    if (request_.action == Request::Action::registry_set) complete_set(ask_password);
    if (chosen_ != nullptr) request_.arguments = chosen_->arguments(ask_password, request_.options.deadline);
    return request_;
}

/// Options behind the one that is wrong have not been read, so the words themselves are asked for --json.
void CommandLine::fail(Parsed& parsed, int exit_code, const std::string& problem,
                       const std::string& advice) const {
    const auto end = std::find(words_.begin(), words_.end(), "--");
    const automation::Error error(automation::RuntimeError::invalid_procedure_call,
                                  secrets_among(words_).masked(problem));
    if (std::find(words_.begin(), end, "--json") != end) {
        parsed.output = json_error(request_.member, error, exit_code);
    }
    parsed.error = error_text(error) + advice;
    parsed.exit_code = exit_code;
}

/// The member that the words have led to; nullptr for none.
const Member* CommandLine::named_member() const {
    const auto chosen = app_.get_subcommands();
    const std::string name = chosen.empty() ? "" : chosen.front()->get_name();
    const auto member = std::find_if(core::members.begin(), core::members.end(),
                                     [&](const Member& each) { return each.name == name; });
    return member == core::members.end() ? nullptr : &*member;
}

std::string CommandLine::problem_of(const CLI::ParseError& error) const {
    std::string better = diagnosis(app_, words_);
    if (!better.empty()) return better;
    if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr && takes_password(named_member()))
        return "there are too many words; they are not repeated here, because one may be a password";
    return words_.empty() ? "name a member to call, or a tool" : error.what();
}

/// Where a member's words are too few or too many, the order of those that it takes.
std::string CommandLine::advice_on(const CLI::ParseError& error) const {
    const Member* const member = named_member();
    const auto chosen = app_.get_subcommands();
    const bool miscounted = dynamic_cast<const CLI::RequiredError*>(&error) != nullptr ||
                            dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    const bool helps = member != nullptr && member->kind == MemberKind::method && miscounted;
    return (helps ? "The order is: " + usage_line(*member) + "\n" : "") + "See 'foliant" +
           (chosen.empty() ? "" : " " + chosen.front()->get_name()) + " --help'.\n";
}

Parsed CommandLine::parse(const AskPassword& ask_password) {
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
        fail(parsed, exit_usage, problem_of(error), advice_on(error));
    } catch (const TimeLimitReached& error) {
        fail(parsed, exit_time_limit, error.what(), "");
    }
    return parsed;
}

}  // namespace

Parsed parse(const std::vector<std::string>& words, const AskPassword& ask_password) {
    return CommandLine(words).parse(ask_password);
}

}  // namespace foliant::cli
