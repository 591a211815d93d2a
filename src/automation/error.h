#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace foliant::automation {

/// The classic automation run-time errors that this library raises itself, by their numbers.
enum class RuntimeError : std::int32_t {
    overflow = 6,
    out_of_memory = 7,
    subscript_out_of_range = 9,
    type_mismatch = 13,
    internal_error = 51,
    bad_file_name = 52,
    file_not_found = 53,
    device_io_error = 57,
    disk_full = 61,
    permission_denied = 70,
    path_file_access = 75,
    path_not_found = 76,
    object_not_set = 91,
    invalid_use_of_null = 94,
    invalid_procedure_call = 5,
    object_required = 424,
    cannot_create_object = 429,
    no_such_member = 438,
    action_not_supported = 445,
    named_argument_not_found = 448,
    argument_not_optional = 449,
    wrong_number_of_arguments = 450,
    events_not_supported = 459,
};

/// A failure as a caller of automation sees it: a number, who raised it, and a sentence for people.
///
/// It is the only exception type that crosses the rooms. Numbers from 1 to 65535 are run-time errors;
/// negative ones are HRESULTs as outside objects return them.
class Error : public std::exception {
  public:
    /// `cause` is the error whose sentence this one stands for, where there is one.
    Error(std::int32_t number, std::string source, std::string description,
          std::shared_ptr<const Error> cause = nullptr);

    /// A run-time error with its usual sentence and no source yet.
    explicit Error(RuntimeError number);

    /// A run-time error with a sentence of its own, for the cases where the usual one would not help.
    Error(RuntimeError number, std::string description);

    std::int32_t number() const noexcept { return number_; }
    const std::string& source() const noexcept { return source_; }
    const std::string& description() const noexcept { return description_; }
    /// The error whose sentence this one stands for, nullptr where it speaks for itself. It is for those who
    /// report a failure to people; a caller of automation does not get to see it.
    const std::shared_ptr<const Error>& cause() const noexcept { return cause_; }
    bool is(RuntimeError number) const noexcept { return number_ == static_cast<std::int32_t>(number); }
    const char* what() const noexcept override { return description_.c_str(); }

  private:
    std::int32_t number_;
    std::string source_;
    std::string description_;
    std::shared_ptr<const Error> cause_;
};

/// The first of the causes behind an error; the error itself when there is none.
const Error& root_cause(const Error& error) noexcept;

/// The usual sentence of a run-time error, for example "File not found" for 53.
std::string_view usual_description(RuntimeError number) noexcept;

/// Turns whatever exception is being handled into an `Error`; call it inside a catch clause only.
/// An `Error` stays as it is, exhausted memory is 7, anything else is 51 with the exception's own words.
Error current_error() noexcept;

}  // namespace foliant::automation
