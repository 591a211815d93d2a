// Outside objects, on one that says back what it was asked, and on one that Windows scripting has.

#include "platform/win32/dispatch_object.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <vector>

#include "automation/error.h"
#include "platform/win32/outside_error.h"
#include "platform/win32/variant.h"
#include "platform/win32/windows_platform.h"

namespace foliant::platform::win32::test {
namespace {

using automation::Error;
using automation::named;
using automation::Value;

/// Fails every call in a way that the test sets.
class FailingObject final : public IDispatch {
  public:
    HRESULT outcome = S_OK;
    HRESULT enumeration_outcome = DISP_E_MEMBERNOTFOUND;
    IUnknown* enumeration = nullptr;  ///< a reference of which every caller gets one
    EXCEPINFO raised{};
    int refusals = 0;         ///< how many calls it is too busy for
    WORD unknown_flags = 0;   ///< the way to reach a member that it does not know
    std::vector<WORD> flags;  ///< how its members were reached

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** out) override {
        *out = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        ids[0] = std::wstring_view(names[0]) == L"Known" ? 1 : DISPID_UNKNOWN;
        for (UINT i = 1; i < count; ++i)
            ids[i] = DISPID_UNKNOWN;
        return ids[0] == 1 && count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID, WORD way, DISPPARAMS*, VARIANT* result,
                                     EXCEPINFO* out, UINT*) override {
        flags.push_back(way);
        if (way == unknown_flags) return DISP_E_MEMBERNOTFOUND;
        if (refusals > 0) {
            --refusals;
            return RPC_E_CALL_REJECTED;
        }
        if (member == DISPID_NEWENUM && enumeration_outcome != DISP_E_EXCEPTION) {
            if (enumeration == nullptr) return enumeration_outcome;
            enumeration->AddRef();
            result->vt = VT_UNKNOWN;
            result->punkVal = enumeration;
            return S_OK;
        }
        *out = raised;
        return outcome;
    }

    ULONG references = 1;
};

/// Goes through 1 and 2.
class Walk final : public IEnumVARIANT {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        *out = id == IID_IEnumVARIANT || id == IID_IUnknown ? this : nullptr;
        if (*out == nullptr) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE Next(ULONG, VARIANT* elements, ULONG*) override {
        if (refusals > 0) {
            --refusals;
            return RPC_E_SERVERCALL_RETRYLATER;
        }
        if (outcome != S_OK || given == 2) return outcome == S_OK ? S_FALSE : outcome;
        elements->vt = VT_I4;
        elements->lVal = ++given;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

    HRESULT outcome = S_OK;
    int refusals = 0;
    int given = 0;
    ULONG references = 1;
};

HRESULT STDMETHODCALLTYPE fill_in(EXCEPINFO* info) {
    info->scode = static_cast<SCODE>(0x80041234);
    info->bstrDescription = Bstr("filled in").release();
    return S_OK;
}

class OutsideObject : public testing::Test {
  protected:
    Error error_of(std::string_view member, const automation::Arguments& arguments = {}) {
        const Value object(std::make_shared<DispatchObject>(ComPointer<IDispatch>::share(&failing)));
        try {
            object.call(member, arguments);
        } catch (const Error& error) {
            return error;
        }
        return {0, "", "no error"};
    }

    std::unique_ptr<automation::Enumeration> enumerate() {
        return std::make_shared<DispatchObject>(ComPointer<IDispatch>::share(&failing))->enumerate();
    }

    static std::int32_t error_number(const std::function<void()>& call) {
        try {
            call();
            return 0;
        } catch (const Error& error) {
            return error.number();
        }
    }

    void raise(WORD code, SCODE scode, const char* description) {
        failing.outcome = DISP_E_EXCEPTION;
        failing.raised = {};
        failing.raised.wCode = code;
        failing.raised.scode = scode;
        failing.raised.bstrSource = Bstr("Host").release();
        failing.raised.bstrDescription = Bstr(description).release();
    }

    FailingObject failing;
};

TEST_F(OutsideObject, RaisesItsOwnErrorWithItsNumberAndDescription) {
    raise(0, static_cast<SCODE>(0x80040123), "The host's words.");
    EXPECT_EQ(error_of("Known").number(), static_cast<std::int32_t>(0x80040123));
    raise(1004, 0, "The host's words.");
    const Error error = error_of("Known");
    EXPECT_EQ(error.number(), 1004);
    EXPECT_EQ(error.source(), "Host");
    EXPECT_EQ(error.description(), "The host's words.");
}

TEST_F(OutsideObject, RaisesARunTimeErrorByItsSmallNumber) {
    raise(0, static_cast<SCODE>(0x800A0035), "");
    const Error error = error_of("Known");
    EXPECT_EQ(error.number(), 53);
    EXPECT_EQ(error.description(), "File not found");
}

TEST_F(OutsideObject, TellsDetailsThatItLeftOutAtFirst) {
    raise(0, 0, "");
    SysFreeString(failing.raised.bstrDescription);
    failing.raised.bstrDescription = nullptr;
    failing.raised.pfnDeferredFillIn = fill_in;
    const Error error = error_of("Known");
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(0x80041234));
    EXPECT_EQ(error.description(), "filled in");
}

TEST_F(OutsideObject, RaisesABareResultWithTheSystemsText) {
    failing.outcome = E_ACCESSDENIED;
    const Error error = error_of("Known");
    EXPECT_EQ(error.number(), static_cast<std::int32_t>(E_ACCESSDENIED));
    EXPECT_EQ(error.description(), system_text(E_ACCESSDENIED));
    EXPECT_NE(error.description().find("ccess"), std::string::npos) << error.description();
    failing.outcome = static_cast<HRESULT>(0x8004FFFE);
    EXPECT_EQ(error_of("Known").description(), "Automation error (8004FFFE)");
}

TEST_F(OutsideObject, LacksAMemberWith438AndAnArgumentWith448) {
    EXPECT_EQ(error_of("known").number(), 438);
    EXPECT_EQ(error_of("Known", {named("NoSuch", 1)}).number(), 448);
    failing.outcome = DISP_E_MEMBERNOTFOUND;
    EXPECT_EQ(error_of("Known").number(), 438);
}

TEST_F(OutsideObject, ThatKnowsNoAssignmentOfReferencesIsGivenTheObjectAsAValue) {
    const Value object(std::make_shared<DispatchObject>(ComPointer<IDispatch>::share(&failing)));
    object.set_reference("Known", object);
    EXPECT_EQ(failing.flags, (std::vector<WORD>{DISPATCH_PROPERTYPUTREF}));
    failing.flags.clear();
    failing.unknown_flags = DISPATCH_PROPERTYPUTREF;
    object.set_reference("Known", object);
    EXPECT_EQ(failing.flags, (std::vector<WORD>{DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT}));
    failing.unknown_flags = DISPATCH_PROPERTYPUT;
    EXPECT_EQ(error_number([&] { object.set("Known", 1); }), 438);
}

TEST_F(OutsideObject, ThatIsBusyIsAskedAgain) {
    failing.refusals = 3;
    EXPECT_EQ(error_of("Known").number(), 0);
    EXPECT_EQ(failing.refusals, 0);
}

TEST_F(OutsideObject, IsLetGoOfOnce) {
    error_of("Known");
    EXPECT_EQ(failing.references, 1U);
}

TEST_F(OutsideObject, WithAnEnumerationOfItsOwnIsAskedForThatEvenWhileItIsBusy) {
    Walk walk;
    failing.enumeration = &walk;
    failing.refusals = 2;
    {
        const auto elements = enumerate();
        walk.refusals = 2;
        EXPECT_EQ(elements->next(), Value(std::int32_t{1}));
        EXPECT_EQ(walk.given, 1) << "one at a time";
        EXPECT_EQ(elements->next(), Value(std::int32_t{2}));
        EXPECT_EQ(elements->next(), std::nullopt);
        EXPECT_EQ(elements->next(), std::nullopt);
    }
    EXPECT_EQ(walk.references, 1U);
    EXPECT_EQ(failing.references, 1U);
}

TEST_F(OutsideObject, RaisesWhatItsEnumerationRaises) {
    Walk walk;
    walk.outcome = E_ACCESSDENIED;
    failing.enumeration = &walk;
    EXPECT_EQ(error_number([&] { enumerate()->next(); }), static_cast<std::int32_t>(E_ACCESSDENIED));
    failing.enumeration_outcome = DISP_E_EXCEPTION;
    raise(1004, 0, "The host's words.");
    EXPECT_EQ(error_number([&] { enumerate(); }), 1004);
}

TEST_F(OutsideObject, WithoutAnEnumerationIsAskedForItsCount) {
    for (const HRESULT none : {DISP_E_MEMBERNOTFOUND, DISP_E_UNKNOWNNAME, E_NOTIMPL}) {
        failing.enumeration_outcome = none;
        EXPECT_EQ(error_number([&] { enumerate(); }), 438) << "it has no Count either";
    }
    failing.enumeration_outcome = E_ACCESSDENIED;
    EXPECT_EQ(error_number([&] { enumerate(); }), static_cast<std::int32_t>(E_ACCESSDENIED));
}

TEST_F(OutsideObject, HasNoEventsWithoutASource) {
    const WindowsPlatform platform;
    const auto dictionary = platform.platform().servers.create("Scripting.Dictionary");
    class Nobody : public automation::EventSink {
        void notify(std::string_view, std::span<const Value>) override {}
    } nobody;
    try {
        dictionary->subscribe(nobody);
        FAIL() << "a dictionary has no events";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 459);
    }
}

TEST(ScriptingDictionary, IsFilledReadAndCounted) {
    const WindowsPlatform platform;
    const Value dictionary = platform.platform().servers.create("Scripting.Dictionary");
    dictionary.set("CompareMode", std::int32_t{1});
    dictionary.call("Add", {"key", std::int16_t{4}});
    EXPECT_EQ(dictionary.get("Count"), Value(std::int32_t{1}));
    EXPECT_EQ(dictionary.get("Item", {"key"}), Value(std::int16_t{4}));
    dictionary.object().invoke(automation::Access::set, "Item", {"key", "new"});
    EXPECT_EQ(dictionary.get("Item", {"key"}), Value("new"));
    EXPECT_EQ(dictionary.call("Exists", {"other"}), Value(false));
    try {
        dictionary.set("CompareMode", std::int32_t{0});
        FAIL() << "a dictionary that holds something keeps its way to compare";
    } catch (const Error& error) {
        EXPECT_EQ(error.number(), 5);
    }
}

}  // namespace
}  // namespace foliant::platform::win32::test
