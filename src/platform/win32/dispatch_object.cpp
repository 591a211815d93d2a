#include "platform/win32/dispatch_object.h"

#include <string>
#include <vector>

#include "automation/error.h"
#include "platform/win32/event_source.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"

namespace foliant::platform::win32 {

using automation::Access;
using automation::Argument;
using automation::Arguments;
using automation::Error;
using automation::RuntimeError;
using automation::Value;

namespace {

WORD call_flags(Access access) {
    switch (access) {
        case Access::get:
        case Access::call:
            return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
        case Access::set:
            return DISPATCH_PROPERTYPUT;
        case Access::set_reference:
            return DISPATCH_PROPERTYPUTREF;
    }
    return DISPATCH_METHOD;
}

constexpr DWORD busy_pause_ms = 100;
constexpr int busy_pauses = 100;

/// Makes a call, and makes it again while the object's program refuses it for being busy with something else,
/// as Office does while it starts; ten seconds at most. A call that is refused has done nothing.
template <class Call>
HRESULT while_busy(Call&& call) {
    HRESULT result = call();
    for (int i = 0; i < busy_pauses; ++i) {
        if (result != RPC_E_CALL_REJECTED && result != RPC_E_SERVERCALL_RETRYLATER) break;
        Sleep(busy_pause_ms);
        result = call();
    }
    return result;
}

/// The numbers of a member and of its named arguments, asked for in one go, as their names are spelled.
std::vector<DISPID> look_up(IDispatch& object, std::string_view member, const Arguments& arguments) {
    std::vector<std::wstring> names{to_utf16(member)};
    for (const Argument& argument : arguments)
        if (!argument.name.empty()) names.push_back(to_utf16(argument.name));
    std::vector<LPOLESTR> spelled;
    for (std::wstring& name : names)
        spelled.push_back(name.data());
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    const HRESULT result = while_busy([&] {
        return object.GetIDsOfNames(IID_NULL, spelled.data(), static_cast<UINT>(spelled.size()),
                                    LOCALE_USER_DEFAULT, ids.data());
    });
    if (SUCCEEDED(result)) return ids;
    if (result != DISP_E_UNKNOWNNAME && result != DISP_E_MEMBERNOTFOUND) throw error_of(result);
    throw Error(ids[0] == DISPID_UNKNOWN ? RuntimeError::no_such_member
                                         : RuntimeError::named_argument_not_found);
}

bool assigns(Access access) {
    return access == Access::set || access == Access::set_reference;
}

/// The arguments of one call in the order in which automation wants them: named ones first, then the
/// positional ones from the last to the first.
class CallArguments {
  public:
    /// `ids` are the numbers of the member and of the named arguments. The new value of an assignment is the
    /// last positional argument, so it stands behind the named ones.
    CallArguments(Access access, const Arguments& arguments, const std::vector<DISPID>& ids)
        : values_(arguments.size()), named_(ids.begin() + 1, ids.end()) {
        std::size_t next_named = 0;
        std::size_t next_positional = arguments.size();
        for (const Argument& argument : arguments)
            put_value(argument.value, *values_[argument.name.empty() ? --next_positional : next_named++]);
        if (assigns(access)) named_.push_back(DISPID_PROPERTYPUT);
        // Variant adds nothing to a VARIANT, so an array of the one is an array of the other.
        static_assert(sizeof(Variant) == sizeof(VARIANT));
        parameters_.rgvarg = values_.empty() ? nullptr : values_.front().get();
        parameters_.cArgs = static_cast<UINT>(values_.size());
        parameters_.rgdispidNamedArgs = named_.data();
        parameters_.cNamedArgs = static_cast<UINT>(named_.size());
    }
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;

    DISPPARAMS* get() noexcept { return &parameters_; }

  private:
    std::vector<Variant> values_;
    std::vector<DISPID> named_;
    DISPPARAMS parameters_{};
};

/// What a call has returned. A method's result that has no counterpart counts as none: hardly any caller
/// looks at it, and the method has done its work.
Value result_of(Access access, const VARIANT& result) {
    if (access != Access::call) return to_value(result);
    try {
        return to_value(result);
    } catch (const Error&) {
        return {};
    }
}

class Elements : public automation::Enumeration {
  public:
    explicit Elements(ComPointer<IEnumVARIANT> elements) : elements_(std::move(elements)) {}

    std::optional<Value> next() override {
        if (!elements_) return std::nullopt;
        Variant element;
        const HRESULT outcome = while_busy([&] { return elements_->Next(1, element.put(), nullptr); });
        if (FAILED(outcome)) throw error_of(outcome);
        if (outcome == S_OK) return to_value(*element);
        elements_.reset();
        return std::nullopt;
    }

  private:
    ComPointer<IEnumVARIANT> elements_;
};

ComPointer<IEnumVARIANT> enumeration_in(const VARIANT& answer) {
    if ((answer.vt != VT_UNKNOWN && answer.vt != VT_DISPATCH) || answer.punkVal == nullptr) return {};
    return ComPointer<IUnknown>::share(answer.punkVal).as<IEnumVARIANT>(IID_IEnumVARIANT);
}

}  // namespace

Value DispatchObject::invoke(Access access, std::string_view member, const Arguments& arguments) {
    const std::vector<DISPID> ids = look_up(*dispatch_.get(), member, arguments);
    CallArguments call(access, arguments, ids);
    Variant result;
    EXCEPINFO raised{};
    UINT wrong_argument = 0;
    const auto invoke_as = [&](WORD flags) {
        return while_busy([&] {
            return dispatch_->Invoke(ids[0], IID_NULL, LOCALE_USER_DEFAULT, flags, call.get(),
                                     assigns(access) ? nullptr : result.get(), &raised, &wrong_argument);
        });
    };
    HRESULT outcome = invoke_as(call_flags(access));
    // Some programs take an object as they take any other value, and know no assignment of references.
    if (outcome == DISP_E_MEMBERNOTFOUND && access == Access::set_reference)
        outcome = invoke_as(DISPATCH_PROPERTYPUT);
    if (outcome == DISP_E_EXCEPTION) throw error_of(raised);
    if (outcome == DISP_E_MEMBERNOTFOUND) throw Error(RuntimeError::no_such_member);
    if (FAILED(outcome)) throw error_of(outcome);
    return result_of(access, *result);
}

std::unique_ptr<automation::Enumeration> DispatchObject::enumerate() {
    DISPPARAMS nothing{};
    Variant answer;
    EXCEPINFO raised{};
    const HRESULT outcome = while_busy([&] {
        return dispatch_->Invoke(DISPID_NEWENUM, IID_NULL, LOCALE_USER_DEFAULT, call_flags(Access::get),
                                 &nothing, answer.get(), &raised, nullptr);
    });
    if (outcome == DISP_E_EXCEPTION) throw error_of(raised);
    const bool has_none =
        outcome == DISP_E_MEMBERNOTFOUND || outcome == DISP_E_UNKNOWNNAME || outcome == E_NOTIMPL;
    if (FAILED(outcome) && !has_none) throw error_of(outcome);
    auto elements = enumeration_in(*answer);
    if (!elements) return Object::enumerate();
    return std::make_unique<Elements>(std::move(elements));
}

std::unique_ptr<automation::Subscription> DispatchObject::subscribe(automation::EventSink& sink) {
    return connect(*dispatch_.get(), class_id_, sink);
}

}  // namespace foliant::platform::win32
