// An early-bound client, compiled against the header that the component's makers hand out. It has no window
// and no message loop. It makes one call by slot and says what came of it: what a program was compiled with,
// so those calls only of calls/ that it knows by their names.
//
//     early_bound_client distiller FOLDER

#include <cstdio>
#include <string>

#include "foliant.h"
#include "platform/win32/com_pointer.h"
#include "platform/win32/variant.h"
#include "windows/clients/file_list.h"
#include "windows/clients/recording_sink.h"

namespace {

using foliant::platform::win32::Bstr;
using foliant::platform::win32::ComPointer;
using foliant::platform::win32::from_bstr;
using foliant::platform::win32::Variant;
using foliant::tests::clients::connect;
using foliant::tests::clients::list_of_files;
using foliant::tests::clients::RecordingSink;

/// A variable for a text, as the component's functions take it.
class Text {
  public:
    explicit Text(const std::string& utf8) : text_(Bstr(utf8).release()) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { SysFreeString(text_); }

    BSTR* operator&() { return &text_; }
    BSTR get() const { return text_; }

  private:
    BSTR text_;
};

HRESULT upload(Foliant::_BuildPDF& pdf, const std::string& folder) {
    CLSID id{};
    ComPointer<IDispatch> control;
    CLSIDFromProgID(L"InetCtls.Inet", &id);
    CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER, IID_IDispatch,
                     control.put_void());
    IDispatch* variable = control.get();
    Text host("ftp.example.com"), reports("reports"), in_pdf(folder + "\\in.pdf"), there("out.pdf");
    Text user("ann"), password("secret");
    return pdf.UploadFile(&variable, &host, &reports, &in_pdf, &there, &user, &password);
}

HRESULT excel(Foliant::_BuildPDF& pdf, Text& out_ps, Text& workbook, Text& printer) {
    Variant sheet;
    sheet->vt = VT_BSTR;
    sheet->bstrVal = Bstr("Sheet1").release();
    Text range("A1:F40"), open("open"), write("write"), header("Sales"), footer("Page &P");
    VARIANT_BOOL yes = VARIANT_TRUE;
    long five = 5;  // none of the enumeration's
    auto* elsewhere = reinterpret_cast<Foliant::AlignType*>(&five);
    double two = 2, none = 0;
    long seven = 7;
    return pdf.CreatePSfromExcel(&out_ps, &workbook, sheet.get(), &range, &open, &write, &yes, &yes, &header,
                                 elsewhere, &footer, elsewhere, &two, &none, &none, &none, &none, &none,
                                 &seven, &printer, &yes, &yes);
}

HRESULT text(Foliant::_BuildPDF& pdf, Text& out_ps, Text& notes, Text& printer) {
    Text font("Courier");
    VARIANT_BOOL yes = VARIANT_TRUE, no = VARIANT_FALSE;
    auto right = Foliant::qrxAlignRight;
    // Neighbours that a wrong width would read as well.
    short size[2]{11, -1};
    long color = 255;
    float top[2]{10.5F, -1}, left[2]{20, -1}, to_the_right[2]{30.25F, -1}, bottom[2]{40, -1};
    return pdf.CreatePSfromTextFile(&out_ps, &notes, &yes, &font, &yes, size, &color, &no, &yes, &no, &yes,
                                    &right, top, left, to_the_right, bottom, &yes, &printer);
}

HRESULT make_call(Foliant::_BuildPDF& pdf, const std::string& name, const std::string& folder,
                  Text& printer) {
    Text out_pdf(folder + "\\out.pdf"), out_ps(folder + "\\out.ps");
    Text in_ps(folder + "\\in.ps"), in_doc(folder + "\\in.doc");
    Text none(""), secret("secret"), pages("1-2"), press("Press");
    VARIANT_BOOL yes = VARIANT_TRUE, no = VARIANT_FALSE;
    auto left = Foliant::qrxAlignLeft, right = Foliant::qrxAlignRight;
    if (name == "distiller" || name == "secure-distiller") {
        VARIANT_BOOL security = name == "secure-distiller" ? yes : no;
        return pdf.CreatePDFfromPS(&out_pdf, &in_ps, &printer, &yes, &no, &press, &security);
    }
    if (name == "word-and-distiller")
        return pdf.CreatePDFfromWord(&out_pdf, &in_doc, &secret, &none, &pages, &yes, &yes, &no, &right, &yes,
                                     &printer, &yes, &no, &press, &no);
    if (name == "word")
        return pdf.CreatePSfromWord(&out_ps, &in_doc, &none, &none, &none, &no, &no, &yes, &left, &no,
                                    &printer);
    if (name == "shapes/list") {
        Variant list;
        *list = list_of_files("variants from 0", folder);
        return pdf.CreatePDFfromMultiPS(&out_pdf, list.get(), &printer, nullptr, nullptr, nullptr, nullptr);
    }
    if (name == "powerpoint") {
        long first = 2, last = 3;
        return pdf.CreatePSfromPowerPoint(&out_ps, &in_doc, &first, &last, &yes, &printer);
    }
    if (name == "autocad") {
        Variant layout;
        layout->vt = VT_BSTR;
        layout->bstrVal = Bstr("Layout1").release();
        return pdf.CreatePDFfromAutoCAD(&out_pdf, &in_doc, layout.get(), Text("Old printer").get(), nullptr);
    }
    if (name == "transfer-up") return upload(pdf, folder);
    if (name == "excel") return excel(pdf, out_ps, in_doc, printer);
    if (name == "text") return text(pdf, out_ps, in_doc, printer);
    if (name != "word-and-printer") return E_INVALIDARG;
    return pdf.CreatePDFfromWord2(&out_pdf, &in_doc, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                                  nullptr, nullptr, &printer, nullptr);
}

void tell(HRESULT result) {
    if (result == S_OK) {
        std::printf("no error\n");
        return;
    }
    ComPointer<IErrorInfo> info;
    BSTR source = nullptr;
    BSTR description = nullptr;
    if (GetErrorInfo(0, info.put()) == S_OK) {
        info->GetSource(&source);
        info->GetDescription(&description);
    }
    std::printf("error %08lX %s: %s\n", static_cast<unsigned long>(result), from_bstr(source).c_str(),
                from_bstr(description).c_str());
    SysFreeString(source);
    SysFreeString(description);
}

int run(const std::string& name, const std::string& folder) {
    ComPointer<Foliant::_BuildPDF> pdf;
    const HRESULT created = CoCreateInstance(Foliant::CLSID_BuildPDF, nullptr, CLSCTX_INPROC_SERVER,
                                             Foliant::IID__BuildPDF, pdf.put_void());
    if (FAILED(created)) std::printf("created with %08lX\n", static_cast<unsigned long>(created));
    if (!pdf) return 1;
    const auto sink = ComPointer<RecordingSink>::adopt(new RecordingSink);
    connect(*pdf.get(), *sink.get());
    pdf->put_TempFilePath(Text(folder).get());
    Text printer("");
    tell(make_call(*pdf.get(), name, folder, printer));
    std::printf("printer \"%s\"\n", from_bstr(printer.get()).c_str());
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3 || FAILED(CoInitialize(nullptr))) return 2;
    const int result = run(argv[1], argv[2]);
    CoUninitialize();
    return result;
}
