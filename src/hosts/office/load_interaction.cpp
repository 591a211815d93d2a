#include "hosts/office/load_interaction.h"

#include <com/sun/star/document/FilterOptionsRequest.hpp>
#include <com/sun/star/document/XInteractionFilterOptions.hpp>
#include <com/sun/star/task/DocumentMSPasswordRequest2.hpp>
#include <com/sun/star/task/DocumentPasswordRequest2.hpp>
#include <com/sun/star/task/XInteractionAbort.hpp>
#include <com/sun/star/task/XInteractionPassword2.hpp>
#include <optional>
#include <utility>

#include "hosts/office/uno_support.h"

namespace foliant::hosts {

namespace {

using css::task::PasswordRequestMode;
using css::task::XInteractionAbort;
using css::task::XInteractionContinuation;
using css::task::XInteractionPassword;
using css::task::XInteractionPassword2;
using css::uno::Reference;
using css::uno::UNO_QUERY;

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
Reference<Continuation> find(const css::uno::Sequence<Reference<XInteractionContinuation>>& answers) {
    for (sal_Int32 i = 0; i < answers.getLength(); ++i)
        if (Reference<Continuation> answer(answers.getConstArray()[i], UNO_QUERY); answer.is()) return answer;
    return {};
}

}  // namespace

LoadInteraction::LoadInteraction(std::string open_password, std::string write_password)
    : open_password_(std::move(open_password)), write_password_(std::move(write_password)) {}

void SAL_CALL LoadInteraction::handle(const Reference<css::task::XInteractionRequest>& request) {
    const auto answers = request->getContinuations();
    if (css::document::FilterOptionsRequest options; request->getRequest() >>= options) {
        // The options were given with the load; only the dialog for them is asked for.
        if (const auto answer = find<css::document::XInteractionFilterOptions>(answers); answer.is()) {
            answer->setFilterOptions(options.rProperties);
            answer->select();
            return;
        }
    }
    if (const auto question = password_question(request->getRequest())) {
        const std::string& password = question->to_modify ? write_password_ : open_password_;
        if (!question->to_modify) password_was_asked_ = true;
        const auto answer = find<XInteractionPassword>(answers);
        if (question->mode != css::task::PasswordRequestMode_PASSWORD_REENTER && !password.empty() &&
            answer.is()) {
            answer->setPassword(to_uno(password));
            if (const Reference<XInteractionPassword2> both(answer, UNO_QUERY); both.is())
                both->setPasswordToModify(to_uno(write_password_));
            answer->select();
            return;
        }
        if (!question->to_modify && !password.empty()) password_was_refused_ = true;
    }
    if (const auto abort = find<XInteractionAbort>(answers); abort.is()) abort->select();
}

}  // namespace foliant::hosts
