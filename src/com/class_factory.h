#pragma once

#include "com/unknown.h"

namespace foliant::com {

/// Makes `BuildPDF` objects.
class ClassFactory final : public SingleInterface<ClassFactory, IClassFactory> {
  public:
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept override;
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) noexcept override;
};

}  // namespace foliant::com
