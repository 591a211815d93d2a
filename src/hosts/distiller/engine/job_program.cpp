#include "hosts/distiller/engine/job_program.h"

#include "hosts/distiller/engine/protocol.h"

namespace foliant::hosts::distiller::engine {
namespace {

/// Defines `FoliantRun`: (file) FoliantRun. Operators are bound and everything else is taken by value, so
/// that it works whatever the document has redefined.
constexpr const char* run_and_report = R"PS(
10 dict begin
/errors $error def
/character 1 string def
/octal (\\000) def

% Prints a string with control characters written out.
/printable {
    {
        dup 32 lt 1 index 127 eq or {
            3 -1 1 { 1 index 8 mod 48 add //octal 3 1 roll put 8 idiv } for
            pop //octal print
        } {
            //character exch 0 exch put
            //character print
        } ifelse
    } forall
} bind def

% Prints an object, short enough for a line.
/describe {
    dup type
    dup /stringtype eq {
        pop (\() print
        dup length 60 gt { 0 60 getinterval } if
        //printable exec
        (\)) print
    } {
        dup /nametype eq {
            pop
            dup xcheck not { (/) print } if
            dup length string cvs //printable exec
        } {
            dup /integertype eq 1 index /realtype eq or 1 index /booleantype eq or 1 index /operatortype eq or
            { pop 128 string cvs //printable exec } { exch pop 32 string cvs print } ifelse
        } ifelse
    } ifelse
} bind def

/report {
    (\001error ) print //errors /errorname get //describe exec (\n) print
    (\001command ) print //errors /command get //describe exec (\n) print
    //errors /ostack known {
        //errors /ostack get
        dup length 1 sub -1 2 index length 5 sub dup 0 lt { pop 0 } if {
            1 index exch get
            (\001operand ) print //describe exec (\n) print
        } for
    } if
    flush
} bind def

/failed {
    { //report exec } stopped
    null 1 .quit
} bind def

userdict /FoliantRun {
    { run } stopped { //errors /newerror get { //failed exec } if } if
} bind put
end
)PS";

}  // namespace

std::string setup_program() {
    return std::string(run_and_report) + "(" + setup_file + ") run\n";
}

std::string running_program(std::string_view file) {
    return "(" + std::string(file) + ") //FoliantRun exec\n";
}

}  // namespace foliant::hosts::distiller::engine
