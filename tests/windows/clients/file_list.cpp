#include "windows/clients/file_list.h"

#include <cstdlib>

#include "platform/win32/variant.h"

namespace foliant::tests::clients {

using platform::win32::Bstr;

VARIANT list_of_files(const std::string& kind, const std::string& folder) {
    const bool of_strings = kind.starts_with("strings");
    const VARTYPE type = of_strings ? VT_BSTR : VT_VARIANT;
    const auto last_blank = kind.rfind(' ');
    const LONG first = std::atol(kind.c_str() + last_blank);
    VARIANT list{};
    list.vt = static_cast<VARTYPE>(VT_ARRAY | type);
    list.parray = SafeArrayCreateVector(type, first, 4);
    LONG index = first;
    for (const char* name : {"b.ps", "no such file.ps", "a.ps", "c.ps"}) {
        VARIANT item{};
        item.vt = VT_BSTR;
        item.bstrVal = Bstr(folder + "\\" + name).release();
        SafeArrayPutElement(list.parray, &index, of_strings ? static_cast<void*>(item.bstrVal) : &item);
        VariantClear(&item);
        ++index;
    }
    return list;
}

}  // namespace foliant::tests::clients
