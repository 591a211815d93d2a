#include "hosts/acrobat/structure/form_fields.h"

#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

bool is_same_font(QPDFObjectHandle one, QPDFObjectHandle other) {
    for (const char* key : {"/BaseFont", "/Subtype"})
        if (one.getKey(key).unparseResolved() != other.getKey(key).unparseResolved()) return false;
    return true;
}

/// "/Helv 12 Tf 0 g" with the font's other name.
std::string with_fonts_renamed(const std::string& appearance,
                               const std::map<std::string, std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < appearance.size();) {
        const std::size_t end =
            appearance[i] == '/'
                ? std::min(appearance.find_first_of(" \t\r\n/[](<", i + 1), appearance.size())
                : i + 1;
        const std::string token = appearance.substr(i, end - i);
        const auto renamed = names.find(token);
        text += renamed == names.end() ? token : renamed->second;
        i = end;
    }
    return text;
}

/// Gives a field and those below it the fonts' other names.
void rename_fonts(QPDFObjectHandle field, const std::map<std::string, std::string>& names) {
    std::set<QPDFObjGen> seen;
    std::vector<QPDFObjectHandle> waiting{field};
    while (!waiting.empty()) {
        QPDFObjectHandle one = waiting.back();
        waiting.pop_back();
        if (!one.isDictionary() || (one.isIndirect() && !seen.insert(one.getObjGen()).second)) continue;
        QPDFObjectHandle appearance = one.getKey("/DA");
        if (appearance.isString()) {
            const std::string text = with_fonts_renamed(appearance.getStringValue(), names);
            one.replaceKey("/DA", QPDFObjectHandle::newString(text));
        }
        for (const QPDFObjectHandle& kid : items_of(one.getKey("/Kids")))
            waiting.push_back(kid);
    }
}

}  // namespace

QPDFObjectHandle FormFields::form() {
    return own_dictionary_in(pdf_.qpdf(), pdf_.qpdf().getRoot(), "/AcroForm");
}

void FormFields::note_names() {
    if (names_) return;
    names_.emplace();
    for (QPDFObjectHandle field : items_of(form().getKey("/Fields")))
        if (field.isDictionary() && field.getKey("/T").isString())
            names_->insert(field.getKey("/T").getUTF8Value());
}

/// The form's resources are those of all its fields. A name that means another font here is changed.
FormFields::FontNames FormFields::add_resources(QPDFObjectHandle source_form, const Insertion& insertion) {
    FontNames renamed;
    QPDFObjectHandle resources = source_form.getKey("/DR");
    if (!resources.isDictionary()) return renamed;
    QPDFObjectHandle own = own_dictionary_in(pdf_.qpdf(), form(), "/DR");
    for (const auto& [category, entries] : resources.getDictAsMap()) {
        QPDFObjectHandle coming = entries;
        if (!coming.isDictionary()) continue;
        QPDFObjectHandle there = dictionary_in(own, category);
        for (const auto& [name, resource] : coming.getDictAsMap()) {
            std::string chosen = name;
            if (there.hasKey(name)) {
                QPDFObjectHandle font = resource;
                if (category != "/Font" || !font.isDictionary() || is_same_font(there.getKey(name), font))
                    continue;
                chosen = insertion.unused(name, there.getKeys());
                renamed[name] = chosen;
            }
            there.replaceKey(chosen, insertion.copier.copy(resource));
        }
    }
    return renamed;
}

void FormFields::merge_flags(QPDFObjectHandle source_form) {
    if (source_form.getKey("/NeedAppearances").isBool() &&
        source_form.getKey("/NeedAppearances").getBoolValue())
        form().replaceKey("/NeedAppearances", QPDFObjectHandle::newBool(true));
    QPDFObjectHandle coming = source_form.getKey("/SigFlags");
    if (!coming.isInteger()) return;
    QPDFObjectHandle own = form().getKey("/SigFlags");
    const long long flags = own.isInteger() ? own.getIntValue() : 0;
    form().replaceKey("/SigFlags", QPDFObjectHandle::newInteger(flags | coming.getIntValue()));
}

void FormFields::add_field(QPDFObjectHandle original, QPDFObjectHandle source_form,
                           const Insertion& insertion) {
    QPDFObjectHandle field = insertion.copier.copy(original);
    if (field.getKey("/T").isString()) {
        const std::string name = field.getKey("/T").getUTF8Value();
        const std::string chosen = insertion.unused(name, *names_);
        if (chosen != name) field.replaceKey("/T", QPDFObjectHandle::newUnicodeString(chosen));
        names_->insert(chosen);
    }
    // What the source's form says of all its fields, the target's may say otherwise.
    for (const char* key : {"/DA", "/Q"})
        if (!field.hasKey(key) && source_form.hasKey(key))
            field.replaceKey(key, insertion.copier.copy(source_form.getKey(key)));
    append_to(form(), "/Fields", {field});
}

void FormFields::add(const Insertion& insertion) {
    QPDFObjectHandle source_form = insertion.source.qpdf().getRoot().getKey("/AcroForm");
    if (!source_form.isDictionary()) return;
    std::vector<QPDFObjectHandle> fields;
    for (const QPDFObjectHandle& field : items_of(source_form.getKey("/Fields"))) {
        if (!QPDFObjectHandle(field).isDictionary()) continue;
        if (insertion.is_whole() || insertion.copier.has_copy(field)) fields.push_back(field);
    }
    if (fields.empty()) return;
    note_names();
    for (const QPDFObjectHandle& field : fields)
        add_field(field, source_form, insertion);
    insertion.copier.finish();
    const FontNames renamed = add_resources(source_form, insertion);
    if (!renamed.empty())
        for (const QPDFObjectHandle& field : fields)
            rename_fonts(insertion.copier.copy(field), renamed);
    merge_flags(source_form);
}

}  // namespace foliant::hosts::acrobat::structure
