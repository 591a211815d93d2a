#pragma once

#include <atomic>
#include <unknwn.h>
#include <utility>

#include "com/module.h"

namespace foliant::com {

/// Counts references, keeps the library loaded, and ends with the last reference.
template <class Derived>
class Counted {
  public:
    ULONG add_reference() noexcept { return static_cast<ULONG>(++references_); }
    ULONG release_reference() noexcept {
        const long left = --references_;
        if (left == 0) delete static_cast<Derived*>(this);
        return static_cast<ULONG>(left);
    }

  protected:
    Counted() = default;
    ~Counted() = default;

  private:
    module::Living living_;
    std::atomic<long> references_{1};
};

/// An object with one interface besides IUnknown. Begins with one reference, which is the maker's.
template <class Derived, class Interface>
class SingleInterface : public Interface, public Counted<Derived> {
  public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) noexcept override {
        if (object == nullptr) return E_POINTER;
        const bool known = id == IID_IUnknown || id == __uuidof(Interface);
        *object = known ? static_cast<Interface*>(this) : nullptr;
        if (!known) return E_NOINTERFACE;
        this->add_reference();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() noexcept override { return this->add_reference(); }
    ULONG STDMETHODCALLTYPE Release() noexcept override { return this->release_reference(); }
};

}  // namespace foliant::com
