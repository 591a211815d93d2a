// A late-bound client: it knows the program identifier and the members' names. It makes one call (see call.h)
// and says what came of it.
//
//     late_bound_client CALL FOLDER "at once"
//     late_bound_client CALL FOLDER "after TEXT"
//
// The last argument says when its window calls back into the component; "" for never. What it knows by name:
// `=variant variable`, its variable for a printer as a script passes it, and `=strings from 1`,
// `=variants from 0, array by reference` and other kinds of lists.

#include <cstdio>
#include <cstdlib>
#include <deque>
#include <ole2.h>
#include <string>
#include <vector>

#include "platform/win32/text.h"
#include "windows/clients/call.h"
#include "windows/clients/file_list.h"
#include "windows/clients/recording_sink.h"
#include "windows/clients/window.h"
#include "windows/com/component.h"

namespace {

using namespace foliant::com;
using foliant::platform::win32::Bstr;
using foliant::platform::win32::from_bstr;
using foliant::platform::win32::to_utf16;
using foliant::platform::win32::Variant;
using foliant::tests::clients::Argument;
using foliant::tests::clients::Call;
using foliant::tests::clients::CallingWindow;
using foliant::tests::clients::connect;
using foliant::tests::clients::list_of_files;
using foliant::tests::clients::list_of_texts;
using foliant::tests::clients::parse_call;
using foliant::tests::clients::RecordingSink;
using foliant::tests::clients::texts_of;

constexpr DWORD library_or_program = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER;

ComPointer<IDispatch> create(const wchar_t* name, DWORD context) {
    CLSID id{};
    ComPointer<IDispatch> object;
    HRESULT result = CLSIDFromProgID(name, &id);
    if (SUCCEEDED(result)) result = CoCreateInstance(id, nullptr, context, IID_IDispatch, object.put_void());
    if (FAILED(result)) std::printf("created with %08lX\n", static_cast<unsigned long>(result));
    return object;
}

/// What the client passes, and its variables, which a call may fill in.
class Passed {
  public:
    Passed(const Call& call, std::string folder) : folder_(std::move(folder)) {
        printer_->vt = VT_BSTR;
        printer_->bstrVal = SysAllocString(L"");
        for (const Argument& argument : call.arguments) {
            variants.push_back(passed(argument));
            if (!argument.name.empty()) names.push_back(to_utf16(argument.name));
        }
    }
    Passed(const Passed&) = delete;
    Passed& operator=(const Passed&) = delete;

    std::string printer() { return from_bstr(printer_->bstrVal); }

    std::vector<VARIANT> variants;
    std::vector<std::wstring> names;

  private:
    VARIANT passed(const Argument& argument) {
        switch (argument.kind) {
            case Argument::Kind::file:
                return text(folder_ + "\\" + argument.text);
            case Argument::Kind::text:
                return text(argument.text);
            case Argument::Kind::truth:
                return truth(argument.text == "True");
            case Argument::Kind::number:
                return value(std::atol(argument.text.c_str()));
            case Argument::Kind::variable:
                return reference(VT_BSTR, &printer_->bstrVal);
            case Argument::Kind::list:
                *list_ = list_of_texts(texts_of(argument));
                return reference(VT_VARIANT, list_.get());
            case Argument::Kind::object:
                return object(argument.text);
            case Argument::Kind::own:
                break;
        }
        return argument.text == "variant variable" ? reference(VT_VARIANT, printer_.get())
                                                   : list(argument.text);
    }

    static VARIANT truth(bool value) {
        VARIANT variant{};
        variant.vt = VT_BOOL;
        variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
        return variant;
    }

    /// A variable that holds the object, as the component's functions take it.
    VARIANT object(const std::string& class_name) {
        object_ = create(to_utf16(class_name).c_str(), library_or_program);
        raw_object_ = object_.get();
        return reference(VT_DISPATCH, &raw_object_);
    }

    VARIANT text(const std::string& utf8) { return value(texts_.emplace_back(utf8).get()); }

    /// A list in one of the ways in which a client can pass it.
    VARIANT list(const std::string& kind) {
        *list_ = list_of_files(kind.substr(0, kind.find(',')), folder_);
        if (kind.ends_with(", array by reference")) return reference(list_->vt, &list_->parray);
        if (kind.ends_with(", variant by reference")) return reference(VT_VARIANT, list_.get());
        return *list_;
    }

    std::string folder_;
    std::deque<Bstr> texts_;
    Variant list_;
    Variant printer_;
    ComPointer<IDispatch> object_;
    IDispatch* raw_object_ = nullptr;
};

/// Has the window call back into the component while a member waits.
void call_back(CallingWindow& window, const std::string& when) {
    constexpr std::string_view after = "after ";
    if (when == "at once") window.tell();
    if (when.starts_with(after)) window.tell_after(when.substr(after.size()));
}

void tell(const Outcome& outcome) {
    if (outcome.code == S_OK)
        std::printf("no error\n");
    else
        std::printf("error %s\n", outcome.error.c_str());
    const VARIANT& result = *outcome.result;
    if (result.vt == VT_BSTR) std::printf("result \"%s\"\n", from_bstr(result.bstrVal).c_str());
    if (result.vt == VT_I4) std::printf("result \"%ld\"\n", result.lVal);
}

int run(const std::string& row, const std::string& folder, const std::string& when) {
    const ComPointer<IDispatch> pdf = create(L"Foliant.BuildPDF", CLSCTX_INPROC_SERVER);
    if (!pdf) return 1;
    const auto sink = ComPointer<RecordingSink>::adopt(new RecordingSink);
    connect(*pdf.get(), *sink.get());
    CallingWindow window(*pdf.get());
    call_back(window, when);
    const Bstr temporary(folder);
    Outcome assigned;
    call(*pdf.get(), L"TempFilePath", {value(temporary.get())}, assigned, {}, DISPATCH_PROPERTYPUT);
    const Call wanted = parse_call(row);
    Passed passed(wanted, folder);
    Outcome outcome;
    call(*pdf.get(), to_utf16(wanted.member), passed.variants, outcome, passed.names);
    tell(outcome);
    std::printf("printer \"%s\"\n", passed.printer().c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4 || FAILED(CoInitialize(nullptr))) return 2;
    const int result = run(argv[1], argv[2], argv[3]);
    CoUninitialize();
    return result;
}
