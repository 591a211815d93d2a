// Makes a printer the default, as a client does: printer_client NAME. Ends with 0 when the call raised
// nothing.

#include "windows/com/component.h"

int main(int, char** arguments) {
    using namespace foliant::com;
    CoInitialize(nullptr);
    const foliant::platform::win32::Bstr name(arguments[1]);
    Outcome outcome;
    {
        const Component component;
        call(*component.create().get(), L"SetDefPrinter", {value(name.get())}, outcome);
    }
    CoUninitialize();
    return outcome.error.empty() ? 0 : 1;
}
