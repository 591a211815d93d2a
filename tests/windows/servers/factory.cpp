#include "windows/servers/factory.h"

#include <memory>
#include <string>

#include "windows/servers/recording_object.h"

namespace foliant::tests::servers {

HRESULT Factory::QueryInterface(REFIID id, void** out) {
    const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IClassFactory);
    *out = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT Factory::CreateInstance(IUnknown* outer, REFIID id, void** out) {
    *out = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    const std::string name(recorded_.object);
    auto scene = std::make_shared<Scene>();
    if (scene->act("create " + name) != Ending::good) return E_ACCESSDENIED;
    auto* object = new RecordingObject(name, std::move(scene), true);
    const HRESULT result = object->QueryInterface(id, out);
    object->Release();
    return result;
}

}  // namespace foliant::tests::servers
