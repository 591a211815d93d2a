#include "com/class_factory.h"

#include "com/build_pdf_object.h"
#include "com/guard.h"

namespace foliant::com {

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) noexcept {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return guarded([&] {
        const auto created = platform::win32::ComPointer<IDispatch>::adopt((new BuildPdfObject)->dispatch());
        return created->QueryInterface(id, object);
    });
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
    lock != FALSE ? module::lock() : module::unlock();
    return S_OK;
}

}  // namespace foliant::com
