#include "hosts/acrobat/structure/information.h"

#include <exception>
#include <map>
#include <utility>

#include "hosts/acrobat/splice/information.h"
#include "hosts/acrobat/splice/xmp.h"
#include "hosts/acrobat/structure/catalogue_entry.h"

namespace foliant::hosts::acrobat::structure {

namespace {

constexpr const char* keys[] = {"Title",   "Author",   "Subject",      "Keywords",
                                "Creator", "Producer", "CreationDate", "ModDate"};

QPDFObjectHandle dictionary(Pdf& pdf) {
    return own_dictionary_in(pdf.qpdf(), pdf.qpdf().getTrailer(), "/Info");
}

std::string packet_of(Pdf& pdf) {
    QPDFObjectHandle metadata = pdf.qpdf().getRoot().getKey("/Metadata");
    if (!metadata.isStream()) return {};
    try {
        const auto data = metadata.getStreamData(qpdf_dl_all);
        return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
    } catch (const std::exception&) {
        return {};  // one that cannot be read is replaced
    }
}

void write_packet(Pdf& pdf, const std::map<std::string, std::string>& properties) {
    // A new stream: whoever looks for what was changed compares objects.
    QPDFObjectHandle metadata =
        QPDFObjectHandle::newStream(&pdf.qpdf(), splice::with_properties(packet_of(pdf), properties));
    metadata.getDict().replaceKey("/Type", QPDFObjectHandle::newName("/Metadata"));
    metadata.getDict().replaceKey("/Subtype", QPDFObjectHandle::newName("/XML"));
    pdf.qpdf().getRoot().replaceKey("/Metadata", metadata);
}

void put(Pdf& pdf, const std::string& key, const std::string& text) {
    dictionary(pdf).replaceKey("/" + key, QPDFObjectHandle::newUnicodeString(text));
}

}  // namespace

std::string information(Pdf& pdf, const std::string& key) {
    QPDFObjectHandle all = pdf.qpdf().getTrailer().getKey("/Info");
    if (!all.isDictionary()) return {};
    QPDFObjectHandle value = all.getKey("/" + key);
    return value.isString() ? value.getUTF8Value() : std::string();
}

void set_information(Pdf& pdf, const std::string& key, const std::string& text) {
    put(pdf, key, text);
    pdf.note_change();
}

void note_writing(Pdf& pdf) {
    const std::string time = splice::date_now();
    if (!pdf.file()) {
        put(pdf, "Producer", "Foliant");
        if (information(pdf, "CreationDate").empty()) put(pdf, "CreationDate", time);
    }
    put(pdf, "ModDate", time);
    std::map<std::string, std::string> properties;
    for (const char* key : keys)
        if (std::string text = information(pdf, key); !text.empty()) properties.emplace(key, std::move(text));
    write_packet(pdf, properties);
}

}  // namespace foliant::hosts::acrobat::structure
