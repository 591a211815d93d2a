#include "hosts/distiller/setup_program.h"

#include "hosts/distiller/engine/protocol.h"
#include "hosts/distiller/postscript_string.h"

namespace foliant::hosts::distiller {
namespace {

/// Cairo cuts a font into subsets and gives all of them the font's name. The interpreter takes fonts of one
/// name for parts of one font; where they contradict each other it draws their characters as pictures, and
/// the text is lost. From the second subset on a name gets the tag that PDF has for subsets, "AAAAAB+Name".
/// What was seen is kept in global memory, out of reach of the save and restore around each file of a driver.
constexpr const char* tag_subsets = R"PS(
/seen currentglobal true setglobal 50 dict exch setglobal def
/tagged {  % name number -> name
    exch dup length string cvs
    dup length 7 add string dup 0 (AAAAAA+) putinterval
    dup 7 4 -1 roll putinterval
    5 -1 0 {
        2 index 26 mod 65 add
        2 index 3 1 roll put
        exch 26 idiv exch
    } for
    exch pop cvn
} bind def
/definetagged {  % key font -> font
    dup wcheck { dup /FontName known } { false } ifelse {
        dup /FontName get
        //seen 1 index known { //seen 1 index get 1 add } { 0 } ifelse
        //seen 2 index 2 index put
        dup 0 gt { //tagged exec 1 index exch /FontName exch put } { pop pop } ifelse
    } if
    definefont
} bind def
)PS";

/// Distiller's RunFile takes any path; here it takes those that the driver names, and refuses others. It says
/// which file is running, so that progress can follow.
std::string run_file() {
    return std::string(
               "userdict /RunFile {\n"
               "    //staged 1 index known not { /RunFile cvx /invalidfileaccess signalerror } if\n"
               "    //staged exch get\n"
               "    (") +
           engine::now_running +
           ") print dup print (\\n) print flush\n"
           "    //cairo 1 index known { userdict /definefont //definetagged put } if\n"
           "    run\n"
           "} bind put\n";
}

}  // namespace

std::string setup_program(const Source& source) {
    std::string staged = "/staged <<\n";
    std::string cairo = "/cairo <<\n";
    for (std::size_t i = 0; i < source.parts.size(); ++i) {
        const std::string name = "(" + engine::input_name(i + 1) + ")";
        staged += postscript_string(source.part_names[i]) + " " + name + "\n";
        if (source.parts[i].made_by_cairo) cairo += name + " true\n";
    }
    std::string text =
        "10 dict begin\n" + staged + ">> def\n" + cairo + ">> def\n" + tag_subsets + run_file();
    if (source.main.made_by_cairo) text += "userdict /definefont //definetagged put\n";
    return text + "end\n";
}

}  // namespace foliant::hosts::distiller
