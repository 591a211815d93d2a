// The recorded classes inside their caller's process.

#include "windows/servers/factory.h"
#include "windows/servers/recording_object.h"

using namespace foliant::tests::servers;

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE
    DllGetClassObject(REFCLSID class_id, REFIID id, void** out) {
    static std::array factories = make_factories();
    for (std::size_t i = 0; i < std::size(classes); ++i)
        if (IsEqualCLSID(class_id, classes[i].id)) return factories[i].QueryInterface(id, out);
    return CLASS_E_CLASSNOTAVAILABLE;
}

extern "C" __declspec(dllexport) HRESULT STDMETHODCALLTYPE DllCanUnloadNow() {
    return live_objects == 0 ? S_OK : S_FALSE;
}
