#pragma once

#include <cstddef>
#include <string>

/// What the host and the engine program agree on: names in the workspace, descriptors, and the records that
/// the engine writes while it works.
namespace foliant::hosts::distiller::engine {

inline constexpr const char* kProgram = "ghostscript-engine";
inline constexpr const char* kVersionCommand = "version";  ///< one record `done`, "10.00.0"
inline constexpr const char* kDistillCommand = "distill";  ///< the job that the current folder holds

inline constexpr const char* kOptionsFile = "in/options";
inline constexpr const char* kSetupFile = "in/setup";
inline constexpr const char* kScratchFolder = "scratch";
inline constexpr const char* kOutputFile = "out.pdf";

/// 0 is the input, 1 and up the files that a driver names.
inline std::string input_name(std::size_t index) {
    return "in/" + std::to_string(index);
}

inline constexpr int kRecordDescriptor = 3;
inline constexpr int kOutputDescriptor = 4;

/// A line of the interpreter's output that begins so is meant for the engine, not for people. A document that
/// prints one fools its own progress or its own error text, nothing else.
inline constexpr const char* kNowRunning = "\x01running ";

/// A record is one of these letters, a text, and a zero byte.
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
