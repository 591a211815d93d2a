#pragma once

#include <ocidl.h>

namespace foliant::tests::servers {

/// The list of the one connection point that an object has.
class OnePoint final : public IEnumConnectionPoints {
  public:
    explicit OnePoint(IConnectionPoint& point) : point_(point) { point_.AddRef(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumConnectionPoints);
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
    HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override {
        const bool gives = count > 0 && !given_;
        if (gives) {
            point_.AddRef();
            *points = &point_;
            given_ = true;
        }
        if (fetched != nullptr) *fetched = gives ? 1 : 0;
        return gives && count == 1 ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override {
        given_ = true;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        given_ = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) override {
        *copy = new OnePoint(point_);
        return S_OK;
    }

  private:
    ~OnePoint() { point_.Release(); }

    IConnectionPoint& point_;
    bool given_ = false;
    ULONG references_ = 1;
};

}  // namespace foliant::tests::servers
