#include "hosts/distiller/engine/interpreter.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ghostscript/iapi.h>
#include <ghostscript/ierrors.h>
#include <vector>

#include "hosts/distiller/engine/protocol.h"
#include "hosts/distiller/engine/record_writer.h"

namespace foliant::hosts::distiller::engine {
namespace {

/// Without -dNOPAUSE the interpreter waits for the return key after each page that went out, whatever the
/// document does to showpage, EndPage or setpagedevice. The key is ours to press: that is how pages are seen,
/// at no cost. This keeps it from asking for the key in words.
constexpr const char* pause_silently = "-dNOPAGEPROMPT";

/// What the interpreter says about every font it looks for. A substitution, which changes the document, is
/// told.
bool is_font_noise(std::string_view line) {
    return (line.starts_with("Loading ") && line.find(" font from ") != std::string_view::npos) ||
           line.starts_with("Querying operating system for font files") ||
           line.starts_with("Can't find (or can't open) font file") ||
           line == "Didn't find this font on the system!";
}

/// Lines with which our own PostScript reports an error, and the records they become.
struct ReportLine {
    std::string_view opening;
    Record record;
};
constexpr std::array<ReportLine, 4> report_lines = {{
    {now_running, Record::running},
    {"\x01"
     "error ",
     Record::error},
    {"\x01"
     "command ",
     Record::command},
    {"\x01"
     "operand ",
     Record::operand},
}};

std::size_t index_of_input(std::string_view name) {
    const auto slash = name.rfind('/');
    return slash == std::string_view::npos ? 0 : std::strtoul(name.data() + slash + 1, nullptr, 10);
}

}  // namespace

Interpreter::Interpreter()
    : output_([this](std::string_view line) { take_output_line(line); }),
      diagnostics_([this](std::string_view line) {
          if (started_) send(Record::line, line);
      }) {
    position_.follow(input_name(0));
    start();
}

void Interpreter::start() {
    int code = gsapi_new_instance(&instance_, this);
    if (code >= 0) code = gsapi_set_stdio(instance_, on_stdin, on_stdout, on_stderr);
    if (code >= 0) code = gsapi_set_arg_encoding(instance_, GS_ARG_ENCODING_UTF8);
    std::vector<std::string> arguments = {
        "foliant",
        "-P-",  // nothing of the interpreter's own is looked for in the current folder
        "-dSAFER",
        "--permit-file-read=in/*",
        pause_silently,
        "-sDEVICE=pdfwrite",
        std::string("-sOutputFile=") + output_file,
    };
    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    if (code >= 0) code = gsapi_init_with_args(instance_, static_cast<int>(pointers.size()), pointers.data());
    if (code < 0) {
        send(Record::failed, "Ghostscript does not start (its error " + std::to_string(code) + ")");
        std::_Exit(EXIT_SUCCESS);
    }
    started_ = true;
}

bool Interpreter::run(std::string_view program) {
    int exit_code = 0;
    const int code = gsapi_run_string_with_length(instance_, program.data(),
                                                  static_cast<unsigned>(program.size()), 0, &exit_code);
    has_quit_ = code == gs_error_Quit;
    output_.finish();
    diagnostics_.finish();
    return has_quit_ ? exit_code == 0 : code >= 0;
}

int Interpreter::finish() {
    int pages = 0;
    if (gsapi_get_param(instance_, "PageCount", &pages, gs_spt_int) < 0) pages = 0;
    const int code = gsapi_exit(instance_);
    output_.finish();
    diagnostics_.finish();
    // The document may have changed the device since its last page.
    return code < 0 && code != gs_error_Quit ? code : std::max(pages, pages_seen_);
}

int Interpreter::on_stdin(void* self, char* buffer, int size) {
    if (size < 1) return 0;
    static_cast<Interpreter*>(self)->page_is_out();
    buffer[0] = '\n';
    return 1;
}

int Interpreter::on_stdout(void* self, const char* text, int size) {
    static_cast<Interpreter*>(self)->output_.add({text, static_cast<std::size_t>(size)});
    return size;
}

int Interpreter::on_stderr(void* self, const char* text, int size) {
    static_cast<Interpreter*>(self)->diagnostics_.add({text, static_cast<std::size_t>(size)});
    return size;
}

void Interpreter::take_output_line(std::string_view line) {
    const auto report =
        std::find_if(report_lines.begin(), report_lines.end(),
                     [line](const ReportLine& known) { return line.starts_with(known.opening); });
    if (report == report_lines.end()) {
        if (started_ && !is_font_noise(line)) send(Record::line, line);
        return;
    }
    line.remove_prefix(report->opening.size());
    if (report->record != Record::running) return send(report->record, line);

    const std::string index = std::to_string(index_of_input(std::string(line)));
    position_.follow(input_name(index_of_input(std::string(line))));
    send(Record::running, index);
}

void Interpreter::page_is_out() {
    ++pages_seen_;
    send(Record::page, std::to_string(position_.now()));
}

}  // namespace foliant::hosts::distiller::engine
