#include "hosts/acrobat/fixture.h"

#include <functional>

#include "hosts/document_file.h"

namespace foliant::hosts::acrobat::test {

using automation::Value;

std::shared_ptr<structure::Pdf> read_pdf(const std::filesystem::path& path, const std::string& password) {
    const DocumentFile file = open_document_file(path);
    return structure::Pdf::open(std::make_shared<MappedFile>(file.descriptor.get()), password);
}

std::vector<std::string> texts(structure::Pdf& pdf) {
    std::vector<std::string> texts;
    for (const structure::Page& page : pdf.pages()) {
        const auto data = QPDFObjectHandle(page.object).getKey("/Contents").getStreamData();
        const std::string content(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
        const std::size_t begin = content.find('(');
        texts.push_back(content.substr(begin + 1, content.find(')') - begin - 1));
    }
    return texts;
}

std::vector<std::string> bookmarks(structure::Pdf& pdf) {
    const std::vector<std::string> contents = texts(pdf);
    const auto place = [&](QPDFObjectHandle target) {
        if (!target.isArray()) return target.unparse();
        for (std::size_t i = 0; i < contents.size(); ++i)
            if (pdf.pages()[i].object.isSameObjectAs(target.getArrayItem(0))) return contents[i];
        return std::string("nowhere");
    };
    std::vector<std::string> lines;
    const std::function<void(QPDFObjectHandle, const std::string&)> walk = [&](QPDFObjectHandle item,
                                                                               const std::string& indent) {
        for (; item.isDictionary(); item = item.getKey("/Next")) {
            QPDFObjectHandle count = item.getKey("/Count");
            const std::string open = count.isInteger() ? " " + std::to_string(count.getIntValue()) : "";
            lines.push_back(indent + item.getKey("/Title").getUTF8Value() + open + " -> " +
                            place(item.getKey("/Dest")));
            walk(item.getKey("/First"), indent + "  ");
        }
    };
    walk(pdf.qpdf().getRoot().getKey("/Outlines").getKey("/First"), "");
    return lines;
}

PdfText with_bookmarks(const std::string& label) {
    PdfText pdf = pages(2, label);
    pdf.add_to_catalogue("/Outlines 4 0 R");
    pdf.set(4, "<< /First 5 0 R /Last 7 0 R /Count 2 >>");
    pdf.set(5, "<< /Title (" + label +
                   ") /Parent 4 0 R /Next 7 0 R /First 6 0 R /Last 6 0 R /Count 1 "
                   "/Dest [10 0 R /Fit] >>");
    pdf.set(6, "<< /Title (in it) /Parent 5 0 R /Dest [20 0 R /Fit] >>");
    pdf.set(7, "<< /Title (end) /Parent 4 0 R /Prev 5 0 R /A << /S /GoTo /D [20 0 R /Fit] >> >>");
    return pdf;
}

Value AcrobatTest::merged(const std::vector<std::string>& contents) {
    Value target = new_document();
    target.call("Create");
    for (const std::string& content : contents) {
        const Value source = document_on(content);
        const auto last = *target.call("GetNumPages").if_holds<std::int32_t>() - 1;
        EXPECT_EQ(
            target.call("InsertPages", {last, source, std::int32_t{0}, source.call("GetNumPages"), true}),
            Value(true));
        source.call("Close");
    }
    return target;
}

std::shared_ptr<structure::Pdf> AcrobatTest::saved(const Value& document, std::int16_t flags) const {
    const std::filesystem::path path = folder / "saved.pdf";
    EXPECT_EQ(document.call("Save", {flags, path.string()}), Value(true));
    std::shared_ptr<structure::Pdf> pdf = read_pdf(path);
    EXPECT_FALSE(pdf->qpdf().anyWarnings());
    return pdf;
}

}  // namespace foliant::hosts::acrobat::test
