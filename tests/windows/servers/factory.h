#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <ole2.h>
#include <utility>

#include "windows/servers/classes.h"

namespace foliant::tests::servers {

/// Makes recording objects of one class. There is one for each class, for as long as the process lives.
class Factory final : public IClassFactory {
  public:
    explicit Factory(const Class& recorded) : recorded_(recorded) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** out) override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  private:
    const Class& recorded_;
};

/// One for each of the recorded classes, in their order.
inline std::array<Factory, std::size(classes)> make_factories() {
    return []<std::size_t... I>(std::index_sequence<I...>) {
        return std::array<Factory, std::size(classes)>{Factory(classes[I])...};
    }
    (std::make_index_sequence<std::size(classes)>());
}

}  // namespace foliant::tests::servers
