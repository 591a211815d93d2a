#pragma once

#include <string>
#include <string_view>

#include "hosts/distiller/engine/line_assembler.h"
#include "hosts/distiller/engine/reading_position.h"

namespace foliant::hosts::distiller::engine {

/// Ghostscript, set up to write the workspace's PDF from the workspace's files and to touch nothing else. The
/// current folder is the workspace. What it says and does becomes records as it happens.
class Interpreter {
  public:
    Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    /// Runs PostScript text. True when it came to its end or quit by itself; after a `false`, or a `quit`,
    /// only `finish` may follow.
    bool run(std::string_view program);

    /// Closes the PDF. Returns the number of its pages; negative when it could not be written.
    int finish();

    bool has_quit() const { return has_quit_; }

  private:
    static int on_stdin(void* self, char* buffer, int size);
    static int on_stdout(void* self, const char* text, int size);
    static int on_stderr(void* self, const char* text, int size);

    void start();
    void take_output_line(std::string_view line);
    void page_is_out();

    void* instance_ = nullptr;
    bool started_ = false;
    bool has_quit_ = false;
    int pages_seen_ = 0;
    ReadingPosition position_;
    LineAssembler output_;
    LineAssembler diagnostics_;
};

}  // namespace foliant::hosts::distiller::engine
