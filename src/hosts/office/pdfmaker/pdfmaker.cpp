#include "hosts/office/pdfmaker/pdfmaker.h"

#include <filesystem>
#include <string>

#include "automation/coerce.h"
#include "hosts/late_bound.h"
#include "hosts/office/draw/drawing.h"
#include "hosts/office/engine/document_opener.h"
#include "hosts/office/engine/loaded_document.h"
#include "hosts/office/engine/start.h"
#include "hosts/office/pdfmaker/document_kind.h"

namespace foliant::hosts::office {

namespace {

/// The name by which callers wait for the PDF.
std::string pdf_name(const std::filesystem::path& document) {
    const std::string name = document.filename().string();
    return name.substr(0, name.find('.') + 1) + "pdf";
}

/// Whatever it is: only Visio drawings have page sizes of which LibreOffice knows nothing.
void launch(Machine& machine, const std::filesystem::path& path) {
    Drawing document(open_in_office(machine, path, {}, acrobat_pdfmaker, document_filter));
    const std::filesystem::path pdf = machine.private_folder() / "made.pdf";
    document.export_pdf("", pdf);
    machine.show_in_acrobat(pdf, pdf_name(path));
    std::filesystem::remove(pdf);
}

}  // namespace

automation::ObjectPtr make_pdfmaker(Machine& machine) {
    require_office(acrobat_pdfmaker);
    auto pdfmaker = std::make_shared<LateBound>(acrobat_pdfmaker.name);
    pdfmaker->add_method("LaunchDocument", {"FileName", "Flags"}, [&machine](const Bound& given) {
        launch(machine, automation::to_text(given[0]));
        return std::int32_t{0};
    });
    return pdfmaker;
}

}  // namespace foliant::hosts::office
