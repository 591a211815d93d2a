#pragma once

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "automation/value.h"
#include "cli/secret_input.h"
#include "core/member.h"

namespace foliant::cli {

/// The sub-command of one member, made from its row of the table: required parameters stand in order, or
/// behind the option of their name; the others are options. Every option also has the parameter's exact name.
class MemberCommand {
  public:
    /// Adds the options to `command`, which outlives this object.
    MemberCommand(CLI::App& command, const core::Member& member);

    const core::Member& member() const noexcept { return member_; }

    /// The arguments as given, named, in the member's order. Raises CLI::ParseError for what is missing or
    /// wrong, a new password that would open nothing too, and TimeLimitReached while a password is waited for.
    automation::Arguments arguments(const AskPassword& ask_password, const Deadline& deadline) const;

  private:
    struct Given {
        std::vector<std::string> texts;
        CLI::Option* option = nullptr;
        std::string password_file;
        bool ask = false;
    };

    void add_parameter(CLI::App& command, const core::Parameter& parameter);
    void add_password_sources(CLI::App& command, const core::Parameter& parameter, Given& given);
    automation::Value value_of(const core::Parameter& parameter, const Given& given) const;
    bool is_given(const Given& given) const;
    void check_parallel_lists() const;

    const core::Member& member_;
    std::map<std::string_view, std::unique_ptr<Given>> given_;
};

}  // namespace foliant::cli
