#include "cli/completion.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "automation/text.h"
#include "cli/option_names.h"
#include "core/members.h"
#include "core/parameter_help.h"

namespace foliant::cli {

using core::Member;
using core::MemberKind;
using core::Parameter;

namespace {

struct Word {
    std::string text;
    std::string help;
    bool takes_value = false;
    std::string values{};  ///< the names of its values, where they have names
};

const std::vector<Word>& common_options() {
    static const std::vector<Word> options{
        {"--json", "print the outcome as JSON"},
        {"--quiet", "no progress"},
        {"--verbose", "show what the call does outside"},
        {"--log", "write that to a file", true},
        {"--no-clobber", "replace no file that exists"},
        {"--timeout", "end the call after that time", true},
        {"--memory", "end the call when it needs more", true},
        {"--temp-path", "folder for temporary files", true},
        {"--help", "explain the options"},
    };
    return options;
}

/// The names that stand for the values of an enumeration, "" for other types.
std::string values_of(core::ValueType type) {
    if (type == core::ValueType::align_type) return "left center right";
    return type == core::ValueType::read_type ? "none page document" : "";
}

std::vector<Word> options_of(const Member& member) {
    std::vector<Word> options;
    for (const Parameter& parameter : member.parameters()) {
        if (is_made_by_the_command(parameter)) continue;
        const std::string name = "--" + option_name(parameter.name);
        const std::string help(core::parameter_help(member, parameter));
        options.push_back(
            {name, help, parameter.type != core::ValueType::boolean, values_of(parameter.type)});
        if (core::parameter_role(member, parameter) != core::ParameterRole::password) continue;
        options.push_back({name + "-file", "read that password from a file", true});
        options.push_back({name + "-ask", "ask for that password"});
    }
    return options;
}

std::vector<Word> tools() {
    return {{"help", "explain a member or a tool"},      {"rehearse", "show every step, take none"},
            {"hosts", "list the host programs"},         {"registry", "read and change the settings store"},
            {"completion", "print a completion script"}, {"man", "print the manual page"}};
}

std::vector<const Member*> methods() {
    std::vector<const Member*> found;
    for (const Member& member : core::members) {
        if (member.kind != MemberKind::property_put) found.push_back(&member);
    }
    return found;
}

std::string names_of(const std::vector<Word>& words) {
    std::string text;
    for (const Word& word : words)
        text += (text.empty() ? "" : " ") + word.text;
    return text;
}

std::string all_commands() {
    std::string text = names_of(tools());
    for (const Member* member : methods())
        text += " " + std::string(member->name);
    return text;
}

std::string quoted(std::string text) {
    for (std::size_t at = 0; (at = text.find('\'', at)) != std::string::npos; at += 4)
        text.replace(at, 1, "'\\''");
    return "'" + text + "'";
}

/// Lines of a `case` in which every option with named values, by either of its names, gives those.
std::string bash_values() {
    std::map<std::string, std::string> options;  // by values
    std::set<std::string_view> known;
    for (const Member* member : methods()) {
        for (const Parameter& parameter : member->parameters()) {
            const std::string values = values_of(parameter.type);
            if (values.empty() || !known.insert(parameter.name).second) continue;
            std::string& names = options[values];
            names += (names.empty() ? "--" : " | --") + option_name(parameter.name) + " | --" +
                     std::string(parameter.name);
        }
    }
    std::string lines;
    for (const auto& [values, names] : options)
        lines += "        " + names + ") words='" + values + "' ;;\n";
    return lines;
}

/// The common options behind which a word is their value, as alternatives of a pattern.
std::string with_value() {
    std::string names;
    for (const Word& word : common_options()) {
        if (word.takes_value) names += (names.empty() ? "" : "|") + word.text;
    }
    return names;
}

std::string bash_script() {
    const std::string valued = with_value();
    std::string script =
        "# bash completion for foliant\n"
        "_foliant() {\n"
        "    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= words= "
        "word i\n"
        "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
        "        case ${COMP_WORDS[i]} in\n"
        "            " +
        valued +
        ") ((i++)) ;;\n"
        "            -* | rehearse | help) ;;\n"
        "            *) command=${COMP_WORDS[i]}; break ;;\n"
        "        esac\n"
        "    done\n"
        "    case ${command,,} in\n"
        "        '') words='" +
        all_commands() +
        "' ;;\n"
        "        registry) words='list get set remove reset' ;;\n"
        "        completion) words='bash zsh fish' ;;\n";
    for (const Member* member : methods()) {
        script += "        " + automation::to_lower(member->name) + ") words='" +
                  names_of(options_of(*member)) + "' ;;\n";
    }
    return script +
           "    esac\n"
           "    case $current in\n"
           "        -*) words=\"$words " +
           names_of(common_options()) +
           "\" ;;\n"
           "        *) [ -n \"$command\" ] &&\n"
           "               case $command in registry | completion) ;; *) words= ;; esac ;;\n"
           "    esac\n"
           "    # An equals sign is a word of its own.\n"
           "    [ \"$current\" = = ] && current=\n"
           "    [ \"$before\" = = ] && before=${COMP_WORDS[COMP_CWORD - 2]}\n"
           "    case $before in\n" +
           bash_values() + "        " + valued +
           ") words= ;;\n"
           "    esac\n"
           "    COMPREPLY=()\n"
           "    for word in $words; do\n"
           "        [[ ${word,,} == \"${current,,}\"* ]] && COMPREPLY+=(\"$word\")\n"
           "    done\n"
           "}\n"
           "complete -o default -o bashdefault -F _foliant foliant\n";
}

std::string zsh_option(const Word& word) {
    std::string help = word.help;
    for (char& c : help) {
        if (c == '[' || c == ']' || c == ':') c = ' ';
    }
    std::string action = word.takes_value ? ":value:_files" : "";
    if (!word.values.empty()) action = ":value:{compadd -M 'm\\:{a-zA-Z}={A-Za-z}' " + word.values + "}";
    return " " + quoted(word.text + "[" + help + "]" + action);
}

std::string zsh_script() {
    std::string script =
        "#compdef foliant\n"
        "_foliant() {\n"
        "    local -a commands\n"
        "    local command=${words[(r)[A-Z][a-zA-Z]#]}\n"
        "    commands=(\n";
    for (const Word& tool : tools())
        script += "        " + quoted(tool.text + ":" + tool.help) + "\n";
    for (const Member* member : methods()) {
        script += "        " + quoted(std::string(member->name) + ":" + std::string(member->help)) + "\n";
    }
    script +=
        "    )\n"
        "    if [[ $words[CURRENT-1] == (" +
        with_value() +
        ") ]]; then\n"
        "        _files\n"
        "        return\n"
        "    fi\n"
        "    local tool=${words[(r)(registry|completion)]}\n"
        "    if [[ -z $command$tool || ( -n $command && $words[CURRENT] == $command ) ]]; then\n"
        "        _describe command commands -M 'm:{a-zA-Z}={A-Za-z}'\n"
        "        return\n"
        "    fi\n"
        "    case $tool in\n"
        "        registry) _values action list get set remove reset; return ;;\n"
        "        completion) _values shell bash zsh fish; return ;;\n"
        "    esac\n"
        "    case $command in\n";
    for (const Member* member : methods()) {
        script += "        " + std::string(member->name) + ") _arguments";
        for (const Word& word : options_of(*member))
            script += zsh_option(word);
        for (const Word& word : common_options())
            script += zsh_option(word);
        script += " '*:file:_files' ;;\n";
    }
    return script + "    esac\n}\n_foliant \"$@\"\n";
}

std::string fish_script() {
    std::string names;
    for (const Word& tool : tools())
        names += tool.text + " ";
    for (const Member* member : methods())
        names += automation::to_lower(member->name) + " ";
    // fish's own test takes the value of an option for the command.
    std::string script =
        "# fish completion for foliant\n"
        "function __foliant_needs_command\n"
        "    for word in (commandline -opc)\n"
        "        contains -- (string lower -- $word) " +
        names +
        "; and return 1\n"
        "    end\n"
        "    return 0\n"
        "end\n";
    const auto subcommand = [&](const std::string& name, const std::string& help) {
        script +=
            "complete -c foliant -n '__foliant_needs_command; or __fish_seen_subcommand_from rehearse help' "
            "-a " +
            name + " -d " + quoted(help) + "\n";
    };
    for (const Word& tool : tools())
        subcommand(tool.text, tool.help);
    for (const Member* member : methods())
        subcommand(std::string(member->name), std::string(member->help));
    const auto option = [&](const std::string& condition, const Word& word) {
        script += "complete -c foliant" + condition + " -l " + word.text.substr(2) +
                  (word.takes_value ? " -r" : "") +
                  (word.values.empty() ? "" : " -f -a " + quoted(word.values)) + " -d " + quoted(word.help) +
                  "\n";
    };
    for (const Word& word : common_options())
        option("", word);
    for (const Member* member : methods()) {
        const std::string condition = " -n '__fish_seen_subcommand_from " + std::string(member->name) + "'";
        for (const Word& word : options_of(*member))
            option(condition, word);
    }
    script +=
        "complete -c foliant -n '__fish_seen_subcommand_from registry' -f -a 'list get set remove reset'\n";
    script += "complete -c foliant -n '__fish_seen_subcommand_from completion' -f -a 'bash zsh fish'\n";
    return script;
}

}  // namespace

std::string completion_script(std::string_view shell) {
    return shell == "zsh" ? zsh_script() : shell == "fish" ? fish_script() : bash_script();
}

}  // namespace foliant::cli
