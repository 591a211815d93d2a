#include <functional>
#include <gtest/gtest.h>
#include <olectl.h>

#include "com/connection_point.h"
#include "com/identifiers.h"
#include "windows/com/component.h"

namespace foliant::com {
namespace {

using automation::Value;
using platform::win32::from_bstr;

/// What the connection point is a part of; counts references and has nothing else.
class Owner final : public IConnectionPointContainer {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) noexcept override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint**) noexcept override {
        return E_NOTIMPL;
    }

    ULONG references = 1;
};

/// Notes each event as "1(a, b)" and then does what the test asks for.
class Sink final : public IDispatch {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        *object = id == IID_IUnknown || id == IID_IDispatch || id == events_id ? this : nullptr;
        if (*object != nullptr) ++references;
        return *object != nullptr ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* sent, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        seen += std::to_string(id) + "(";
        for (UINT i = sent->cArgs; i-- > 0;) {
            const VARIANTARG& argument = sent->rgvarg[i];
            if (argument.vt == (VT_BYREF | VT_BSTR)) seen += from_bstr(*argument.pbstrVal);
            if (argument.vt == (VT_BYREF | VT_I4)) seen += std::to_string(*argument.plVal);
            if (i > 0) seen += ", ";
        }
        seen += ")";
        return and_then ? and_then(*sent) : S_OK;
    }

    ULONG references = 1;
    std::string seen;
    std::function<HRESULT(DISPPARAMS&)> and_then;
};

class Events : public testing::Test {
  protected:
    DWORD connect(Sink& sink) {
        DWORD cookie = 0;
        EXPECT_EQ(source_.Advise(&sink, &cookie), S_OK);
        return cookie;
    }
    void raise() {
        const std::vector<Value> paths{"a.ps", "b.pdf"};
        source_.notify("JobStart", paths);
    }

    Owner owner_;
    ConnectionPoint source_{owner_};
    Sink first_;
    Sink second_;
};

TEST_F(Events, ReachEverySinkInOrderWithTheirArguments) {
    connect(first_);
    connect(second_);
    raise();
    source_.notify("PageNumber", std::vector<Value>{Value(std::int32_t{7})});
    EXPECT_EQ(first_.seen, "1(a.ps, b.pdf)6(7)");
    EXPECT_EQ(second_.seen, first_.seen);
}

TEST_F(Events, ASinkThatFailsKeepsNobodyFromHearing) {
    first_.and_then = [](DISPPARAMS&) { return E_FAIL; };
    connect(first_);
    connect(second_);
    raise();
    EXPECT_EQ(second_.seen, "1(a.ps, b.pdf)");
}

TEST_F(Events, WhatASinkDoesToItsArgumentsStaysWithIt) {
    first_.and_then = [](DISPPARAMS& sent) {
        SysReAllocString(sent.rgvarg[1].pbstrVal, L"changed");
        return S_OK;
    };
    connect(first_);
    connect(second_);
    raise();
    EXPECT_EQ(second_.seen, "1(a.ps, b.pdf)");
}

TEST_F(Events, ASinkMayDisconnectItselfAndOthersDuringAnEvent) {
    const DWORD first = connect(first_);
    const DWORD second = connect(second_);
    first_.and_then = [&](DISPPARAMS&) {
        EXPECT_EQ(source_.Unadvise(first), S_OK);
        EXPECT_EQ(source_.Unadvise(second), S_OK);
        return S_OK;
    };
    raise();
    EXPECT_EQ(first_.seen, "1(a.ps, b.pdf)");
    EXPECT_EQ(second_.seen, "");
    EXPECT_EQ(first_.references, 1U);
    EXPECT_EQ(second_.references, 1U);
    EXPECT_EQ(source_.Unadvise(first), CONNECT_E_NOCONNECTION);
}

TEST_F(Events, ConnectionsAreListed) {
    const DWORD cookie = connect(first_);
    ComPointer<IEnumConnections> list;
    ASSERT_EQ(source_.EnumConnections(list.put()), S_OK);
    CONNECTDATA connection{};
    ULONG fetched = 0;
    EXPECT_EQ(list->Next(1, &connection, &fetched), S_OK);
    EXPECT_EQ(connection.dwCookie, cookie);
    connection.pUnk->Release();
    EXPECT_EQ(list->Next(1, &connection, &fetched), S_FALSE);
}

TEST(Object, NamesItsEventsInEveryWay) {
    const Component component;
    const auto object = component.create();
    const auto container = object.as<IConnectionPointContainer>(IID_IConnectionPointContainer);
    ComPointer<IEnumConnectionPoints> points;
    ASSERT_EQ(container->EnumConnectionPoints(points.put()), S_OK);
    ComPointer<IConnectionPoint> point;
    ASSERT_EQ(points->Next(1, point.put(), nullptr), S_OK);
    IID id{};
    EXPECT_EQ(point->GetConnectionInterface(&id), S_OK);
    EXPECT_EQ(id, events_id);
    EXPECT_EQ(container->FindConnectionPoint(events_id, point.put()), S_OK);
    EXPECT_EQ(container->FindConnectionPoint(IID_IDispatch, point.put()), CONNECT_E_NOCONNECTION);
    const auto class_info = object.as<IProvideClassInfo2>(IID_IProvideClassInfo2);
    GUID source{};
    EXPECT_EQ(class_info->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &source), S_OK);
    EXPECT_EQ(source, events_id);
    ComPointer<ITypeInfo> type;
    EXPECT_EQ(class_info->GetClassInfo(type.put()), S_OK);
}

}  // namespace
}  // namespace foliant::com
