#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

/// What the host and the engine program agree on: names in the workspace, descriptors, and the records that
/// the engine writes while it works.
namespace foliant::hosts::distiller::engine {

inline constexpr const char* version_command = "version";  ///< one record `done`, "10.00.0"
inline constexpr const char* distill_command = "distill";  ///< the job that the current folder holds
inline constexpr const char* protect_command =
    "protect";  ///< the PDF at `input_descriptor`; `done` or `failed`

inline constexpr const char* input_folder = "in";
inline constexpr const char* options_file = "in/options";
inline constexpr const char* setup_file = "in/setup";
inline constexpr const char* scratch_folder = "scratch";
inline constexpr const char* output_file = "out.pdf";

/// 0 is the input, 1 and up the files that a driver names.
inline std::string input_name(std::size_t index) {
    return "in/" + std::to_string(index);
}

inline constexpr int record_descriptor = 3;
inline constexpr int output_descriptor = 4;
inline constexpr int input_descriptor = 5;
inline constexpr int settings_descriptor = 6;

/// A line of the interpreter's output that begins so is meant for the engine, not for people. A document that
/// prints one fools its own progress or its own error text, nothing else.
inline constexpr const char* now_running = "\x01running ";

/// A record is a head and that many bytes of text.
struct RecordHead {
    std::uint32_t kind;  ///< a `Record`
    std::uint32_t bytes;
};
inline constexpr std::uint32_t longest_record = 65536;  ///< of its text, in bytes; longer ones are cut

enum class Record : char {
    line = 'L',         ///< output of the document or the interpreter, without its line end
    running = 'R',      ///< decimal index of the input file that runs from now on
    page = 'P',         ///< a page is finished; decimal byte position in the running file
    options_set = 'J',  ///< the job options are set, the input follows
    error = 'E',        ///< name of the PostScript error that ended the job, then OffendingCommand
    command = 'C',
    operand = 'O',  ///< one operand, topmost first
    done = 'D',     ///< the PDF is written; decimal number of its pages
    failed = 'F',   ///< it is not; why, where that is no PostScript error
};

}  // namespace foliant::hosts::distiller::engine
