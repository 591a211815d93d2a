#include "windows/servers/sent_arguments.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "windows/servers/record.h"

namespace foliant::tests::servers {
namespace {

/// Argument names get numbers from here on, as they come.
constexpr DISPID first_argument = 1000;
std::vector<std::string> argument_names;

const std::string& argument_name(DISPID id) {
    return argument_names.at(static_cast<std::size_t>(id - first_argument));
}

std::wstring text_of(const VARIANT* argument) {
    const bool is_text = argument != nullptr && argument->vt == VT_BSTR && argument->bstrVal != nullptr;
    return is_text ? argument->bstrVal : L"";
}

}  // namespace

DISPID argument_id(const std::string& name) {
    const auto known = std::find(argument_names.begin(), argument_names.end(), name);
    const auto place = known - argument_names.begin();
    if (known == argument_names.end()) argument_names.push_back(name);
    return first_argument + static_cast<DISPID>(place);
}

const VARIANT* SentArguments::at(UINT place) const {
    // Named ones stand first; then the others, the last one first.
    return place < sent_.cArgs - sent_.cNamedArgs ? &sent_.rgvarg[sent_.cArgs - 1 - place] : nullptr;
}

const VARIANT* SentArguments::named(std::string_view name) const {
    for (UINT i = 0; i < sent_.cNamedArgs; ++i) {
        const DISPID id = sent_.rgdispidNamedArgs[i];
        if (id != DISPID_PROPERTYPUT && argument_name(id) == name) return &sent_.rgvarg[i];
    }
    return nullptr;
}

std::wstring SentArguments::text(UINT place) const {
    return text_of(at(place));
}

std::wstring SentArguments::file() const {
    for (UINT i = 0; i < sent_.cArgs; ++i) {
        const UINT positional = sent_.cArgs - sent_.cNamedArgs;
        const VARIANT* argument = i < positional ? at(i) : &sent_.rgvarg[i - positional];
        if (const std::wstring text = text_of(argument); text.find(L":\\") == 1) return text;
    }
    return {};
}

std::string SentArguments::described() const {
    std::string text;
    const auto add = [&](const std::string& argument) { text += (text.empty() ? "" : ", ") + argument; };
    for (UINT place = 0; at(place) != nullptr; ++place)
        add(describe(*at(place)));
    for (UINT i = 0; i < sent_.cNamedArgs; ++i) {
        const DISPID id = sent_.rgdispidNamedArgs[i];
        const std::string value = describe(sent_.rgvarg[i]);
        add(id == DISPID_PROPERTYPUT ? value : argument_name(id) + ":=" + value);
    }
    return text;
}

}  // namespace foliant::tests::servers
