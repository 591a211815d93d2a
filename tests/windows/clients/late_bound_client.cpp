// A late-bound client: it knows the program identifier and the members' names. It makes one call and says
// what came of it.
//
//     late_bound_client MEMBER FOLDER
//     late_bound_client "CreatePDFfromPS, a variant variable" FOLDER
//     late_bound_client "CreatePDFfromWord2, closing Acrobat" FOLDER
//     late_bound_client "CreatePDFfromMultiPS, KIND OF LIST" FOLDER

#include <cstdio>
#include <ole2.h>
#include <string>

#include "windows/clients/file_list.h"
#include "windows/clients/recording_sink.h"
#include "windows/clients/window.h"
#include "windows/com/component.h"

namespace {

using namespace foliant::com;
using foliant::platform::win32::Bstr;
using foliant::tests::clients::CallingWindow;
using foliant::tests::clients::connect;
using foliant::tests::clients::list_of_files;
using foliant::tests::clients::RecordingSink;

ComPointer<IDispatch> create() {
    CLSID id{};
    ComPointer<IDispatch> object;
    HRESULT result = CLSIDFromProgID(L"Foliant.BuildPDF", &id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.put_void());
    if (FAILED(result)) std::printf("created with %08lX\n", static_cast<unsigned long>(result));
    return object;
}

VARIANT truth(bool value) {
    VARIANT variant{};
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

/// Passes a list in one of the ways in which a client can.
void call_with_list(IDispatch& pdf, const std::string& kind, const std::string& folder,
                    const VARIANT& printer, Outcome& outcome) {
    constexpr std::string_view array = ", array by reference";
    constexpr std::string_view variant = ", variant by reference";
    const Bstr out_pdf(folder + "\\out.pdf");
    const std::string plain = kind.substr(0, kind.find(','));
    foliant::platform::win32::Variant list;
    *list = list_of_files(plain, folder);
    VARIANT sent = *list;
    if (kind.ends_with(array)) sent = reference(list->vt, &list->parray);
    if (kind.ends_with(variant)) sent = reference(VT_VARIANT, list.get());
    call(pdf, L"CreatePDFfromMultiPS", {value(out_pdf.get()), sent, printer}, outcome);
}

/// The call; `printer` is a variable of the client's.
void make_call(IDispatch& pdf, const std::string& member, const std::string& folder, BSTR& printer,
               Outcome& outcome) {
    constexpr std::string_view with_list = "CreatePDFfromMultiPS, ";
    const Bstr out_pdf(folder + "\\out.pdf"), out_ps(folder + "\\out.ps");
    const Bstr in_ps(folder + "\\in.ps"), in_doc(folder + "\\in.doc");
    const Bstr none(""), secret("secret"), pages("1-2"), press("Press");
    const VARIANT variable = reference(VT_BSTR, &printer);
    const VARIANT empty = value(none.get());
    const VARIANT yes = truth(true);
    const VARIANT no = truth(false);
    if (member.starts_with(with_list)) {
        call_with_list(pdf, member.substr(with_list.size()), folder, variable, outcome);
    } else if (member == "CreatePDFfromPS, a variant variable") {
        VARIANT filled = value(printer);
        call(pdf, L"CreatePDFfromPS",
             {value(out_pdf.get()), value(in_ps.get()), reference(VT_VARIANT, &filled), yes, no,
              value(press.get()), no},
             outcome);
        printer = filled.bstrVal;
    } else if (member == "CreatePDFfromPS") {
        call(pdf, L"CreatePDFfromPS",
             {value(out_pdf.get()), value(in_ps.get()), variable, yes, no, value(press.get()), no}, outcome);
    } else if (member == "CreatePDFfromWord") {
        call(pdf, L"CreatePDFfromWord",
             {value(out_pdf.get()), value(in_doc.get()), value(secret.get()), empty, value(pages.get()), yes,
              yes, no, value(2L), yes, variable, yes, no, value(press.get()), no},
             outcome);
    } else if (member == "CreatePSfromWord") {
        call(pdf, L"CreatePSfromWord",
             {value(out_ps.get()), value(in_doc.get()), empty, empty, empty, no, no, yes, value(0L), no,
              variable},
             outcome);
    } else if (member == "CreatePDFfromWord2") {
        call(pdf, L"CreatePDFfromWord2", {value(out_pdf.get()), value(in_doc.get()), variable}, outcome,
             {L"strDistiller"});
    } else if (member == "CreatePDFfromWord2, closing Acrobat") {
        call(pdf, L"CreatePDFfromWord2", {value(out_pdf.get()), value(in_doc.get()), variable, yes}, outcome,
             {L"strDistiller", L"blnCloseAcrobat"});
    }
}

/// Has the window call back into the component while a member waits.
void call_during_wait(CallingWindow& window, const std::string& member) {
    if (member.starts_with("CreatePDFfromMultiPS")) window.tell();
    if (member == "CreatePDFfromWord" || member == "CreatePSfromWord")
        window.tell_after("Document.PrintOut(");
    if (member == "CreatePDFfromWord2") window.tell_after("\"Adobe PDF - Security\" ends");
}

int run(const std::string& member, const std::string& folder) {
    const ComPointer<IDispatch> pdf = create();
    if (!pdf) return 1;
    const auto sink = ComPointer<RecordingSink>::adopt(new RecordingSink);
    connect(*pdf.get(), *sink.get());
    CallingWindow window(*pdf.get());
    call_during_wait(window, member);
    const Bstr temporary(folder);
    Outcome outcome;
    call(*pdf.get(), L"TempFilePath", {value(temporary.get())}, outcome, {}, DISPATCH_PROPERTYPUT);
    BSTR printer = SysAllocString(L"");
    make_call(*pdf.get(), member, folder, printer, outcome);
    if (outcome.code == S_OK) {
        std::printf("no error\n");
    } else {
        std::printf("error %s\n", outcome.error.c_str());
    }
    std::printf("printer \"%s\"\n", foliant::platform::win32::from_bstr(printer).c_str());
    SysFreeString(printer);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || FAILED(CoInitialize(nullptr))) return 2;
    const int result = run(argv[1], argv[2]);
    CoUninitialize();
    return result;
}
