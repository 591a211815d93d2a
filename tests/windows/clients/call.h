#pragma once

#include <string>
#include <vector>

namespace foliant::tests::clients {

/// What a client passes. Written as in a row of calls/: `out.pdf` is a file of the client's folder, `printer`
/// a variable of the client's that begins as an empty text, `'Press'` a text, `True` and `2` values; `=files`
/// is something that the client knows by that name; `['Model', 'Layout1']` is a list of texts and
/// `new InetCtls.Inet` an object of that class, which the client makes.
struct Argument {
    enum class Kind { file, variable, text, truth, number, own, list, object };

    Kind kind;
    std::string text;  ///< without the marks: `Press`
    std::string name;  ///< of the parameter, for one that is given by name; else ""
};

/// One call: `CreatePDFfromWord2: out.pdf; in.doc; strDistiller=printer`. Named arguments stand last.
struct Call {
    std::string member;
    std::vector<Argument> arguments;
};

Call parse_call(const std::string& row);

/// The texts of a list.
std::vector<std::string> texts_of(const Argument& list);

}  // namespace foliant::tests::clients
