#include "hosts/acrobat/fixture.h"

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
