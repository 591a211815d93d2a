#include "windows/clients/script_call.h"

#include <stdexcept>
#include <string_view>
#include <vector>

#include "core/dispatch.h"
#include "windows/clients/call.h"

namespace foliant::tests::clients {
namespace {

struct Language {
    char joins_texts;
    std::string_view truths[2];
    bool may_leave_out;
    std::string_view list[2];  ///< what stands before and behind its elements
    std::string_view makes;    ///< makes an object of a class
};
constexpr Language vbscript{'&', {"False", "True"}, true, {"Array(", ")"}, "CreateObject"};
constexpr Language jscript{'+', {"false", "true"}, false, {"[", "]"}, "new ActiveXObject"};

const core::Member& member_of(const Call& call) {
    const auto dispid = core::find_dispid(call.member);
    if (!dispid) throw std::runtime_error("no member " + call.member);
    return *core::find_member(*dispid, automation::Access::call);
}

std::string list_of_texts(const Argument& argument, const Language& language) {
    std::string texts;
    for (const std::string& text : texts_of(argument))
        texts += (texts.empty() ? "\"" : ", \"") + text + '"';
    return std::string(language.list[0]) + texts + std::string(language.list[1]);
}

std::string written(const Argument& argument, const Language& language) {
    switch (argument.kind) {
        case Argument::Kind::file:
            return std::string("folder ") + language.joins_texts + " \"" + argument.text + "\"";
        case Argument::Kind::text:
            return '"' + argument.text + '"';
        case Argument::Kind::truth:
            return std::string(language.truths[argument.text == "True" ? 1 : 0]);
        case Argument::Kind::list:
            return list_of_texts(argument, language);
        case Argument::Kind::object:
            return std::string(language.makes) + "(\"" + argument.text + "\")";
        default:
            return argument.text;
    }
}

/// The arguments in the order of the interface, "" for what is left out between them.
std::string list_of(const Call& call, const Language& language) {
    std::vector<std::string> places;
    for (const Argument& argument : call.arguments) {
        std::size_t place = places.size();
        if (!argument.name.empty()) place = core::find_parameter(member_of(call), argument.name).value();
        if (place > places.size() && !language.may_leave_out) break;
        if (place >= places.size()) places.resize(place + 1);
        places[place] = written(argument, language);
    }
    std::string list;
    for (std::size_t i = 0; i < places.size(); ++i)
        list += (i == 0 ? "" : ", ") + places[i];
    return list;
}

}  // namespace

std::string vbscript_call(const std::string& row) {
    const Call call = parse_call(row);
    const std::string list = list_of(call, vbscript);
    if (member_of(call).result) return "result = pdf." + call.member + "(" + list + ")";
    return "pdf." + call.member + " " + list;
}

std::string jscript_call(const std::string& row) {
    const Call call = parse_call(row);
    return "result = pdf." + call.member + "(" + list_of(call, jscript) + ");";
}

}  // namespace foliant::tests::clients
