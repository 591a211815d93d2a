#include "hosts/acrobat/structure/signatures.h"

#include <exception>
#include <qpdf/QPDFAcroFormDocumentHelper.hh>
#include <string>
#include <vector>

#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

QPDFObjectHandle value_in(QPDFObjectHandle dictionary, const char* key) {
    return dictionary.isDictionary() ? dictionary.getKey(key) : QPDFObjectHandle::newNull();
}

QPDFObjectHandle permissions_of(Pdf& pdf) {
    return value_in(pdf.qpdf().getRoot(), "/Perms");
}

QPDFObjectHandle certification_of(Pdf& pdf) {
    return value_in(permissions_of(pdf), "/DocMDP");
}

std::optional<Changes> changes_in(QPDFObjectHandle dictionary) {
    QPDFObjectHandle number = value_in(dictionary, "/P");
    if (!number.isInteger() || number.getIntValue() < 1 || number.getIntValue() > 3) return {};
    return static_cast<Changes>(number.getIntValue());
}

/// What a signature says of the whole document; nothing where it says nothing.
std::optional<Changes> changes_allowed_by(QPDFObjectHandle signature) {
    for (const QPDFObjectHandle& reference : items_of(value_in(signature, "/Reference"))) {
        QPDFObjectHandle method = value_in(reference, "/TransformMethod");
        if (!method.isName() || method.getName() != "/DocMDP") continue;
        return changes_in(value_in(reference, "/TransformParams")).value_or(Changes::forms);
    }
    return {};
}

/// Where what is signed ends: "[0 1000 3000 400]" leaves out the signature itself.
std::size_t signed_size(QPDFObjectHandle signature, const MappedFile& file) {
    const std::vector<QPDFObjectHandle> range = items_of(value_in(signature, "/ByteRange"));
    if (range.size() != 4) return 0;
    QPDFObjectHandle begin = range[2];
    QPDFObjectHandle size = range[3];
    if (!begin.isInteger() || !size.isInteger() || begin.getIntValue() < 0 || size.getIntValue() < 0)
        return 0;
    const auto most = static_cast<long long>(file.bytes().size());
    if (begin.getIntValue() > most || size.getIntValue() > most - begin.getIntValue()) return 0;
    return static_cast<std::size_t>(begin.getIntValue() + size.getIntValue());
}

bool says_that_it_is_signed(Pdf& pdf) {
    constexpr long long signatures_exist = 1;
    QPDFObjectHandle flags = value_in(value_in(pdf.qpdf().getRoot(), "/AcroForm"), "/SigFlags");
    return flags.isInteger() && (flags.getIntValue() & signatures_exist) != 0;
}

/// Looks at the fields that somebody has signed.
void look_at_fields(Pdf& pdf, Signatures& found) {
    std::vector<QPDFFormFieldObjectHelper> fields = QPDFAcroFormDocumentHelper(pdf.qpdf()).getFormFields();
    for (QPDFFormFieldObjectHelper& field : fields) {
        QPDFObjectHandle signature = field.getValue();
        if (field.getFieldType() != "/Sig" || !signature.isDictionary()) continue;
        found.exist = true;
        std::optional<Changes> allowed = changes_in(value_in(field.getObjectHandle(), "/Lock"));
        if (!allowed) allowed = changes_allowed_by(signature);
        if (allowed && !found.seal)
            found.seal = {
                .is_certification = false, .allowed = *allowed, .size = signed_size(signature, *pdf.file())};
    }
}

}  // namespace

Signatures signatures_in(Pdf& pdf) {
    Signatures found;
    if (!pdf.file()) return found;
    QPDFObjectHandle permissions = permissions_of(pdf);
    for (const char* key : {"/UR3", "/UR"})
        found.extend_rights = found.extend_rights || value_in(permissions, key).isDictionary();
    if (is_certified(pdf)) {
        QPDFObjectHandle signature = certification_of(pdf);
        found.exist = true;
        found.seal = {.is_certification = true,
                      .allowed = changes_allowed_by(signature).value_or(Changes::forms),
                      .size = signed_size(signature, *pdf.file())};
    }
    if (found.seal || !says_that_it_is_signed(pdf)) return found;
    try {
        look_at_fields(pdf, found);
    } catch (const std::exception&) {
        found.exist = true;  // damaged fields: the document says so
    }
    return found;
}

bool is_certified(Pdf& pdf) {
    return certification_of(pdf).isDictionary();
}

void drop_extended_rights(Pdf& pdf) {
    QPDFObjectHandle permissions = permissions_of(pdf);
    if (!permissions.isDictionary()) return;
    permissions.removeKey("/UR3");
    permissions.removeKey("/UR");
}

void drop_permissions(Pdf& pdf) {
    pdf.qpdf().getRoot().removeKey("/Perms");
}

}  // namespace foliant::hosts::acrobat::structure
