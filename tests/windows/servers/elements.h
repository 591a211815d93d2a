#pragma once

#include <functional>
#include <oaidl.h>
#include <utility>
#include <vector>

namespace foliant::tests::servers {

/// Goes through objects that it makes when they are asked for.
class Elements final : public IEnumVARIANT {
  public:
    using Maker = std::function<IDispatch*()>;

    explicit Elements(std::vector<Maker> makers) : makers_(std::move(makers)) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumVARIANT);
        *out = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, VARIANT* elements, ULONG* fetched) override {
        ULONG given = 0;
        for (; given < count && next_ < makers_.size(); ++given) {
            elements[given].vt = VT_DISPATCH;
            elements[given].pdispVal = makers_[next_++]();
        }
        if (fetched != nullptr) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Reset() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  private:
    std::vector<Maker> makers_;
    std::size_t next_ = 0;
    ULONG references_ = 1;
};

}  // namespace foliant::tests::servers
