#include "hosts/office/engine/load_interaction.h"

#include <com/sun/star/document/FilterOptionsRequest.hpp>
#include <com/sun/star/document/XInteractionFilterOptions.hpp>
#include <com/sun/star/task/DocumentMSPasswordRequest2.hpp>
#include <com/sun/star/task/DocumentPasswordRequest2.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionPassword2.hpp>
#include <optional>
#include <utility>

#include "hosts/office/engine/uno_support.h"

namespace foliant::hosts::office {

namespace {

using css::task::PasswordRequestMode;
using css::task::XInteractionAbort;
using css::task::XInteractionContinuation;
using css::task::XInteractionPassword;
using css::task::XInteractionPassword2;
using css::uno::Reference;
using css::uno::UNO_QUERY;

using Answers = css::uno::Sequence<Reference<XInteractionContinuation>>;

struct PasswordQuestion {
    PasswordRequestMode mode;
    bool to_modify = false;
};

/// The question in a request, if it is one for a password. The requests are a family of types that only the
/// newer members of carry `to_modify`.
std::optional<PasswordQuestion> password_question(const css::uno::Any& request) {
    if (css::task::DocumentPasswordRequest2 newer; request >>= newer)
        return PasswordQuestion{newer.Mode, static_cast<bool>(newer.IsRequestPasswordToModify)};
    if (css::task::DocumentMSPasswordRequest2 newer; request >>= newer)
        return PasswordQuestion{newer.Mode, static_cast<bool>(newer.IsRequestPasswordToModify)};
    if (css::task::PasswordRequest plain; request >>= plain) return PasswordQuestion{plain.Mode};
    return {};
}

template <typename Continuation>
Reference<Continuation> find(const Answers& answers) {
    for (sal_Int32 i = 0; i < answers.getLength(); ++i)
        if (Reference<Continuation> answer(answers.getConstArray()[i], UNO_QUERY); answer.is()) return answer;
    return {};
}

/// Hands over the options that came with the request: they were given with the load, and only the dialog to
/// change them is asked for.
bool confirm_options(const css::document::FilterOptionsRequest& request, const Answers& answers) {
    const auto answer = find<css::document::XInteractionFilterOptions>(answers);
    if (!answer.is()) return false;
    answer->setFilterOptions(request.rProperties);
    answer->select();
    return true;
}

bool give_password(const Passwords& passwords, bool to_modify, const Answers& answers) {
    const std::string& password = to_modify ? passwords.write : passwords.open;
    const auto answer = find<XInteractionPassword>(answers);
    if (password.empty() || !answer.is()) return false;
    answer->setPassword(to_uno(password));
    if (const Reference<XInteractionPassword2> both(answer, UNO_QUERY); both.is())
        both->setPasswordToModify(to_uno(passwords.write));
    answer->select();
    return true;
}

}  // namespace

LoadInteraction::LoadInteraction(Passwords passwords) : passwords_(std::move(passwords)) {}

void SAL_CALL LoadInteraction::handle(const Reference<css::task::XInteractionRequest>& request) {
    const Answers answers = request->getContinuations();
    if (css::document::FilterOptionsRequest options; request->getRequest() >>= options)
        if (confirm_options(options, answers)) return;
    if (const auto question = password_question(request->getRequest())) {
        if (!question->to_modify) password_was_asked_ = true;
        const bool again = question->mode == css::task::PasswordRequestMode_PASSWORD_REENTER;
        if (!again && give_password(passwords_, question->to_modify, answers)) return;
    }
    if (const auto abort = find<XInteractionAbort>(answers); abort.is()) abort->select();
}

}  // namespace foliant::hosts::office
