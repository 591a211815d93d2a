#include "hosts/acrobat/splice/xmp.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>
#include <string_view>

namespace foliant::hosts::acrobat::splice {

namespace {

enum class Form { text, alternatives, list, date };

/// A property of XMP that says the same as an entry of the information dictionary.
struct Property {
    std::string_view key;
    std::string_view name;
    std::string_view name_space;
    Form form;
};

constexpr std::string_view dublin_core = "http://purl.org/dc/elements/1.1/";
constexpr std::string_view pdf_schema = "http://ns.adobe.com/pdf/1.3/";
constexpr std::string_view basic_schema = "http://ns.adobe.com/xap/1.0/";

constexpr std::array properties_of_xmp{
    Property{"Title", "dc:title", dublin_core, Form::alternatives},
    Property{"Author", "dc:creator", dublin_core, Form::list},
    Property{"Subject", "dc:description", dublin_core, Form::alternatives},
    Property{"Keywords", "pdf:Keywords", pdf_schema, Form::text},
    Property{"Producer", "pdf:Producer", pdf_schema, Form::text},
    Property{"Creator", "xmp:CreatorTool", basic_schema, Form::text},
    Property{"CreationDate", "xmp:CreateDate", basic_schema, Form::date},
    Property{"ModDate", "xmp:ModifyDate", basic_schema, Form::date},
};

constexpr std::string_view new_packet =
    "<?xpacket begin=\"\xEF\xBB\xBF\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n"
    "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\">\n"
    "<rdf:RDF xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
    "</rdf:RDF>\n"
    "</x:xmpmeta>\n"
    "<?xpacket end=\"w\"?>\n";

/// What XML can hold of a text, with its marks written out.
std::string escaped(std::string_view text) {
    std::string xml;
    for (const char c : text) {
        if (c == '&')
            xml += "&amp;";
        else if (c == '<')
            xml += "&lt;";
        else if (c == '>')
            xml += "&gt;";
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\t' || c == '\n' || c == '\r')
            xml += c;
    }
    return xml;
}

/// "D:20260131120000+01'00'" as "2026-01-31T12:00:00+01:00"; what is no date as it stands.
std::string iso_date(const std::string& date) {
    if (!date.starts_with("D:") || date.size() < 16 ||
        !std::all_of(date.begin() + 2, date.begin() + 16,
                     [](unsigned char c) { return std::isdigit(c) != 0; }))
        return date;
    std::string zone = date.substr(16);
    if (zone.size() >= 6 && zone[3] == '\'')
        zone = zone.substr(0, 3) + ":" + zone.substr(4, 2);
    else
        zone = "Z";
    return date.substr(2, 4) + "-" + date.substr(6, 2) + "-" + date.substr(8, 2) + "T" + date.substr(10, 2) +
           ":" + date.substr(12, 2) + ":" + date.substr(14, 2) + zone;
}

std::string element(const Property& property, const std::string& text) {
    const std::string name(property.name);
    std::string content = escaped(property.form == Form::date ? iso_date(text) : text);
    if (property.form == Form::alternatives)
        content = "<rdf:Alt><rdf:li xml:lang=\"x-default\">" + content + "</rdf:li></rdf:Alt>";
    if (property.form == Form::list) content = "<rdf:Seq><rdf:li>" + content + "</rdf:li></rdf:Seq>";
    return "<" + name + ">" + content + "</" + name + ">\n";
}

bool ends_name(char c) {
    return c == '>' || c == '/' || c == '=' || std::isspace(static_cast<unsigned char>(c)) != 0;
}

/// Where `what` stands as a whole name, not as the beginning of another.
std::size_t find_name(const std::string& xml, const std::string& what, std::size_t from) {
    std::size_t place = xml.find(what, from);
    while (place != std::string::npos && place + what.size() < xml.size() &&
           !ends_name(xml[place + what.size()]))
        place = xml.find(what, place + 1);
    return place;
}

void remove_elements(std::string& xml, const std::string& name) {
    for (std::size_t begin = find_name(xml, "<" + name, 0); begin != std::string::npos;
         begin = find_name(xml, "<" + name, begin)) {
        const std::size_t open_end = xml.find('>', begin);
        if (open_end == std::string::npos) return;
        std::size_t end = open_end + 1;
        if (xml[open_end - 1] != '/') {
            const std::string closing = "</" + name + ">";
            const std::size_t close = xml.find(closing, open_end);
            if (close == std::string::npos) return;
            end = close + closing.size();
        }
        xml.erase(begin, end - begin);
    }
}

/// A property may stand as an attribute of its description.
void remove_attributes(std::string& xml, const std::string& name) {
    for (std::size_t begin = find_name(xml, " " + name, 0); begin != std::string::npos;
         begin = find_name(xml, " " + name, begin)) {
        const std::size_t equals = xml.find_first_not_of(" \t\r\n", begin + 1 + name.size());
        if (equals == std::string::npos || xml[equals] != '=') {
            ++begin;
            continue;
        }
        const std::size_t quote = xml.find_first_of("\"'", equals);
        const std::size_t end = quote == std::string::npos ? quote : xml.find(xml[quote], quote + 1);
        if (end == std::string::npos) return;
        xml.erase(begin, end + 1 - begin);
    }
}

/// Whom the packet describes, as it says it itself: rdf:about="...".
std::string about(const std::string& xml) {
    const std::size_t begin = xml.find("rdf:about=");
    if (begin == std::string::npos || begin + 11 >= xml.size()) return "rdf:about=\"\"";
    const std::size_t end = xml.find(xml[begin + 10], begin + 11);
    return end == std::string::npos ? "rdf:about=\"\"" : xml.substr(begin, end + 1 - begin);
}

}  // namespace

std::string with_properties(std::string_view packet, const std::map<std::string, std::string>& properties) {
    constexpr std::string_view end_of_list = "</rdf:RDF>";
    const bool is_understood = packet.find(end_of_list) != std::string_view::npos;
    std::string xml(is_understood ? packet : new_packet);
    std::string description = "<rdf:Description " + about(xml) + " xmlns:dc=\"" + std::string(dublin_core) +
                              "\" xmlns:pdf=\"" + std::string(pdf_schema) + "\" xmlns:xmp=\"" +
                              std::string(basic_schema) + "\">\n";
    for (const Property& property : properties_of_xmp) {
        const auto given = properties.find(std::string(property.key));
        if (given == properties.end()) continue;
        remove_elements(xml, std::string(property.name));
        remove_attributes(xml, std::string(property.name));
        description += element(property, given->second);
    }
    description += "</rdf:Description>\n";
    xml.insert(xml.find(end_of_list), description);
    return xml;
}

}  // namespace foliant::hosts::acrobat::splice
