#include "cli/secrets.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "automation/coerce.h"
#include "automation/text.h"
#include "core/dispatch.h"
#include "core/parameter_help.h"

namespace foliant::cli {

using automation::Value;

namespace {

constexpr std::string_view mask = "***";
constexpr std::size_t no_word_of_ours = 8;

/// Whether what stands between the two is a text as an argument, as what a window sender is to enter, or as
/// the password of an address.
bool stands_by_itself(std::string_view before, std::string_view behind) {
    const auto between = [&](std::string_view left, std::string_view right) {
        return before.ends_with(left) && behind.starts_with(right);
    };
    const bool entered = before.ends_with("~Edit~") || before.ends_with("~RichEdit20W~");
    return (before.empty() && behind.empty()) || between("\"", "\"") || between("'", "'") ||
           between(":", "@") || (entered && (behind.starts_with("~0~") || behind.starts_with("^1~0~")));
}

/// What may stand around "name:password@server" in a text.
enum class Address {
    with_scheme,  ///< "scheme://" in front of it, or it is no address; a path behind it
    page,         ///< the scheme, or nothing; a path
    server        ///< the scheme, or nothing; no path
};

/// The password in an address, a part of the text; empty when there is none.
std::string_view password_in(std::string_view text, Address address = Address::with_scheme) {
    const std::size_t scheme = text.find("://");
    const bool is_in_password = address == Address::server && text.find(':') != scheme;  // "a:b://c@server"
    if (scheme != std::string_view::npos && !is_in_password)
        text.remove_prefix(scheme + 3);
    else if (address == Address::with_scheme)
        return {};
    if (address != Address::server) text = text.substr(0, text.find('/'));
    const std::size_t end = text.rfind('@');
    const std::size_t colon = text.find(':');
    if (end == std::string_view::npos || colon >= end) return {};
    return text.substr(colon + 1, end - colon - 1);
}

constexpr std::array all_addresses{Address::with_scheme, Address::page, Address::server};

/// What a value of that parameter is, as far as it is an address.
Address address_in(std::string_view parameter) {
    if (automation::equal_ignoring_case(parameter, "strRemoteHost")) return Address::server;
    if (automation::equal_ignoring_case(parameter, "strURL")) return Address::page;
    return Address::with_scheme;
}

/// The same for the words of a command line, of which nobody knows yet which one is what.
Address address_among(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        const auto id = core::find_dispid(word);
        const core::Member* member = id ? core::find_member(*id, automation::Access::call) : nullptr;
        if (member == nullptr) continue;
        for (const core::Parameter& parameter : member->parameters()) {
            const Address address = address_in(parameter.name);
            if (address != Address::with_scheme) return address;
        }
        break;
    }
    return Address::with_scheme;
}

bool speaks_of_a_password(std::string_view name) {
    return automation::to_lower(name).find("password") != std::string::npos;
}

/// Whether the word behind this one is a password: "--open-password", but not "--open-password-file".
bool asks_for_a_password(const std::string& word) {
    const std::string name = automation::to_lower(word);
    return name.starts_with("--") && speaks_of_a_password(name) && !name.ends_with("-file") &&
           !name.ends_with("-ask");
}

}  // namespace

Secrets::Secrets(std::vector<std::string> passwords) : passwords_(std::move(passwords)) {
    std::erase(passwords_, "");
    std::stable_sort(passwords_.begin(), passwords_.end(),
                     [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
}

/// How many characters of a password stand at that place; 0 for none.
std::size_t Secrets::length_at(std::string_view text, std::size_t place) const {
    const std::string_view rest = text.substr(place);
    for (const std::string& password : passwords_) {
        if (!rest.starts_with(password)) continue;
        if (password.size() >= no_word_of_ours ||
            stands_by_itself(text.substr(0, place), rest.substr(password.size())))
            return password.size();
    }
    return 0;
}

std::string Secrets::masked(std::string_view text) const {
    if (passwords_.empty()) return std::string(text);
    std::string result;
    for (std::size_t place = 0; place < text.size();) {
        const std::size_t length = length_at(text, place);
        result += length > 0 ? mask : text.substr(place, 1);
        place += std::max<std::size_t>(length, 1);
    }
    return result;
}

automation::Error Secrets::masked(const automation::Error& error) const {
    const auto& cause = error.cause();
    return {error.number(), error.source(), masked(error.description()),
            cause == nullptr ? nullptr : std::make_shared<const automation::Error>(masked(*cause))};
}

Outcome Secrets::masked(Outcome outcome) const {
    for (ReceivedEvent& event : outcome.events) {
        for (Value& argument : event.arguments) {
            if (const auto* text = argument.if_holds<std::string>()) argument = Value(masked(*text));
        }
    }
    for (automation::Argument& argument : outcome.arguments) {
        const auto* text = argument.value.if_holds<std::string>();
        if (text == nullptr) continue;
        const std::string secret(password_in(*text, address_in(argument.name)));
        if (!secret.empty()) argument.value = Value(Secrets({secret}).masked(*text));
    }
    for (std::string& sentence : outcome.left_out)
        sentence = masked(sentence);
    if (outcome.error) outcome.error = masked(*outcome.error);
    return outcome;
}

void Secrets::erase_from(std::span<char* const> words) const {
    for (char* const word : words) {
        const std::string_view text(word);
        for (const std::string& password : passwords_) {
            if (!text.ends_with(password)) continue;
            const std::size_t at = text.size() - password.size();
            if (at > 0 && text[at - 1] != '=') continue;
            std::memset(word + at, '\0', password.size());
            std::copy_n(mask.begin(), std::min(mask.size(), password.size()), word + at);
        }
        for (const Address address : all_addresses) {
            const std::string_view found = password_in(text, address);
            if (std::find(passwords_.begin(), passwords_.end(), found) != passwords_.end())
                std::memset(word + (found.data() - text.data()), '*', found.size());
        }
    }
}

Secrets secrets_of(const Request& request) {
    if (request.member == nullptr) return {};
    std::vector<std::string> passwords;
    for (const automation::Argument& argument : request.arguments) {
        const auto place = core::find_parameter(*request.member, argument.name);
        if (!place) continue;
        const core::Parameter& parameter = request.member->parameters()[*place];
        if (core::parameter_role(*request.member, parameter) == core::ParameterRole::password) {
            passwords.push_back(automation::to_text(argument.value));
        } else if (const auto* text = argument.value.if_holds<std::string>()) {
            passwords.emplace_back(password_in(*text, address_in(argument.name)));
        }
    }
    return Secrets(std::move(passwords));
}

Secrets secrets_among(const std::vector<std::string>& words) {
    const bool sets = std::find(words.begin(), words.end(), "registry") != words.end() &&
                      std::find(words.begin(), words.end(), "set") != words.end();
    const Address address = address_among(words);
    std::vector<std::string> passwords;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        const std::size_t value = word.find('=');
        passwords.emplace_back(password_in(word, address));
        if (asks_for_a_password(word.substr(0, value)) && value != std::string::npos) {
            passwords.push_back(word.substr(value + 1));
        } else if (i + 1 < words.size() &&
                   (asks_for_a_password(word) ||
                    (sets && speaks_of_a_password(word) && !words[i + 1].starts_with("--")))) {
            passwords.push_back(words[i + 1]);
        }
    }
    return Secrets(std::move(passwords));
}

}  // namespace foliant::cli
