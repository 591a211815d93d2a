#include "windows/clients/file_list.h"

#include <cstdlib>

#include "platform/win32/variant.h"

namespace foliant::tests::clients {

using platform::win32::Bstr;

namespace {

VARIANT list_of(VARTYPE type, LONG first, const std::vector<std::string>& texts) {
    VARIANT list{};
    list.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    list.parray = SafeArrayCreateVector(type, first, static_cast<ULONG>(texts.size()));
    LONG index = first;
    for (const std::string& text : texts) {
        VARIANT item{};
        item.vt = VT_BSTR;
        item.bstrVal = Bstr(text).release();
        SafeArrayPutElement(list.parray, &index, type == VT_BSTR ? static_cast<void*>(item.bstrVal) : &item);
        VariantClear(&item);
        ++index;
    }
    return list;
}

}  // namespace

VARIANT list_of_files(const std::string& kind, const std::string& folder) {
    std::vector<std::string> paths;
    for (const char* name : {"b.ps", "no such file.ps", "a.ps", "c.ps"})
        paths.push_back(folder + "\\" + name);
    const LONG first = std::atol(kind.c_str() + kind.rfind(' '));
    return list_of(kind.starts_with("strings") ? VT_BSTR : VT_VARIANT, first, paths);
}

VARIANT list_of_texts(const std::vector<std::string>& texts) {
    return list_of(VT_VARIANT, 0, texts);
}

}  // namespace foliant::tests::clients
