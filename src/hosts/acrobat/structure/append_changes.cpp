#include "hosts/acrobat/structure/append_changes.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <qpdf/Buffer.hh>
#include <qpdf/QPDFXRefEntry.hh>
#include <qpdf/QUtil.hh>
#include <string>
#include <string_view>
#include <utility>

namespace foliant::hosts::acrobat::structure {
namespace {

/// The table of a file that its end names.
struct Table {
    std::size_t offset = 0;
    bool is_stream = false;
};

/// Nothing for a file of which other places count than those that it names.
std::optional<Table> last_table(std::string_view file) {
    constexpr std::string_view mark = "startxref";
    constexpr std::size_t near_the_end = 1024;
    const std::size_t at = file.rfind(mark);
    if (!file.starts_with("%PDF-") || at == std::string_view::npos || at + near_the_end < file.size())
        return {};
    const std::size_t digits = file.find_first_not_of("\r\n ", at + mark.size());
    if (digits == std::string_view::npos) return {};
    Table table;
    if (std::from_chars(file.data() + digits, file.data() + file.size(), table.offset).ec != std::errc() ||
        table.offset >= file.size())
        return {};
    table.is_stream = !file.substr(table.offset).starts_with("xref");
    return table;
}

std::string_view bytes_of(const std::shared_ptr<Buffer>& buffer) {
    return {reinterpret_cast<const char*>(buffer->getBuffer()), buffer->getSize()};
}

bool is_same(QPDFObjectHandle now, QPDFObjectHandle before) {
    if (!now.isStream() || !before.isStream()) return now.unparseResolved() == before.unparseResolved();
    return now.getDict().unparse() == before.getDict().unparse() &&
           bytes_of(now.getRawStreamData()) == bytes_of(before.getRawStreamData());
}

/// As it stands between "obj" and "endobj".
std::string body_of(QPDFObjectHandle object) {
    if (!object.isStream()) return object.unparseResolved();
    const std::shared_ptr<Buffer> data = object.getRawStreamData();
    QPDFObjectHandle dictionary = object.getDict().shallowCopy();
    dictionary.replaceKey("/Length", QPDFObjectHandle::newInteger(static_cast<long long>(data->getSize())));
    return dictionary.unparse() + "\nstream\n" + std::string(bytes_of(data)) + "\nendstream";
}

std::string in_big_endian(std::uint64_t value, std::size_t bytes) {
    std::string text(bytes, '\0');
    for (std::size_t i = bytes; i-- > 0; value >>= 8U)
        text[i] = static_cast<char>(value & 0xFFU);
    return text;
}

/// What is appended, and where in the file its objects lie.
class Appendix {
  public:
    explicit Appendix(std::size_t file_size, bool needs_line_end)
        : start_(file_size), bytes_(needs_line_end ? "\n" : "") {}

    void add(QPDFObjGen name, const std::string& body) {
        places_[name.getObj()] = {start_ + bytes_.size(), name.getGen()};
        bytes_ += std::to_string(name.getObj()) + " " + std::to_string(name.getGen()) + " obj\n" + body +
                  "\nendobj\n";
    }

    bool is_empty() const { return places_.empty(); }

    /// Adds the table, of the kind that the one before it is of; one file has one kind.
    std::string finish(QPDFObjectHandle trailer, int object_count, const Table& previous) {
        trailer.replaceKey("/Prev", QPDFObjectHandle::newInteger(static_cast<long long>(previous.offset)));
        const std::size_t offset =
            previous.is_stream ? add_stream(trailer, object_count) : add_table(trailer, object_count);
        return std::move(bytes_) + "startxref\n" + std::to_string(offset) + "\n%%EOF\n";
    }

  private:
    struct Place {
        std::size_t offset;
        int generation;
    };

    std::size_t add_table(QPDFObjectHandle trailer, int object_count) {
        const std::size_t offset = start_ + bytes_.size();
        bytes_ += "xref\n";
        for_each_run([&](int first, int count) {
            bytes_ += std::to_string(first) + " " + std::to_string(count) + "\n";
            for (int number = first; number < first + count; ++number) {
                const auto& [place, generation] = places_.at(number);
                bytes_ +=
                    QUtil::uint_to_string(place, 10) + " " + QUtil::int_to_string(generation, 5) + " n \n";
            }
        });
        trailer.replaceKey("/Size", QPDFObjectHandle::newInteger(object_count));
        bytes_ += "trailer\n" + trailer.unparse() + "\n";
        return offset;
    }

    std::size_t add_stream(QPDFObjectHandle trailer, int object_count) {
        constexpr std::size_t offset_bytes = 8;
        const std::size_t offset = start_ + bytes_.size();
        places_[object_count] = {offset, 0};  // it tells of itself, too
        std::string table;
        QPDFObjectHandle index = QPDFObjectHandle::newArray();
        for_each_run([&](int first, int count) {
            index.appendItem(QPDFObjectHandle::newInteger(first));
            index.appendItem(QPDFObjectHandle::newInteger(count));
            for (int number = first; number < first + count; ++number) {
                const auto& [place, generation] = places_.at(number);
                table += '\1' + in_big_endian(place, offset_bytes) +
                         in_big_endian(static_cast<std::uint64_t>(generation), 2);
            }
        });
        trailer.replaceKey("/Type", QPDFObjectHandle::newName("/XRef"));
        trailer.replaceKey("/Size", QPDFObjectHandle::newInteger(object_count + 1));
        trailer.replaceKey("/W", QPDFObjectHandle::parse("[1 " + std::to_string(offset_bytes) + " 2]"));
        trailer.replaceKey("/Index", index);
        trailer.replaceKey("/Length", QPDFObjectHandle::newInteger(static_cast<long long>(table.size())));
        bytes_ += std::to_string(object_count) + " 0 obj\n" + trailer.unparse() + "\nstream\n" + table +
                  "\nendstream\nendobj\n";
        return offset;
    }

    /// Numbers that follow each other.
    template <typename Tell>
    void for_each_run(Tell tell) const {
        for (auto place = places_.begin(); place != places_.end();) {
            const int first = place->first;
            int end = first;
            for (; place != places_.end() && place->first == end; ++place)
                ++end;
            tell(first, end - first);
        }
    }

    std::size_t start_;
    std::string bytes_;
    std::map<int, Place> places_;
};

/// Without what only the table that it stood with needs, and with another name for this state of the file.
QPDFObjectHandle next_trailer(QPDF& pdf) {
    QPDFObjectHandle trailer = pdf.getTrailer().shallowCopy();
    for (const char* key :
         {"/Prev", "/XRefStm", "/Type", "/W", "/Index", "/Filter", "/DecodeParms", "/Length"})
        trailer.removeKey(key);
    QPDFObjectHandle names = trailer.getKey("/ID");
    if (names.isArray() && names.getArrayNItems() == 2) {
        std::string name(16, '\0');
        QUtil::initializeWithRandomBytes(reinterpret_cast<unsigned char*>(name.data()), name.size());
        trailer.replaceKey(
            "/ID", QPDFObjectHandle::newArray({names.getArrayItem(0), QPDFObjectHandle::newString(name)}));
    }
    return trailer;
}

/// The file as it was read, if nothing in it had to be mended.
std::shared_ptr<Pdf> original_of(Pdf& pdf) {
    if (!pdf.file() || pdf.protection() || pdf.qpdf().isEncrypted()) return nullptr;
    std::shared_ptr<Pdf> original = Pdf::open(pdf.file(), "");
    return original->qpdf().anyWarnings() ? nullptr : original;
}

}  // namespace

bool append_changes(Pdf& pdf, OutputFile& output) {
    pdf.settle();
    const std::shared_ptr<Pdf> original = original_of(pdf);
    const std::string_view file = original ? pdf.file()->bytes() : std::string_view();
    const std::optional<Table> table = last_table(file);
    if (!table) return false;
    Appendix appendix(file.size(), !file.ends_with('\n'));
    int object_count = 1;
    const std::map<QPDFObjGen, QPDFXRefEntry> there = original->qpdf().getXRefTable();
    for (const QPDFObjectHandle& object : pdf.qpdf().getAllObjects()) {
        const QPDFObjGen name = object.getObjGen();
        object_count = std::max(object_count, name.getObj() + 1);
        const bool was_there = there.contains(name);
        if (!was_there && QPDFObjectHandle(object).isNull()) continue;
        if (!was_there || !is_same(object, original->qpdf().getObjectByObjGen(name)))
            appendix.add(name, body_of(object));
    }
    if (original->qpdf().anyWarnings()) return false;  // what was mended as it was read is another file
    for (const auto& entry : there)
        object_count = std::max(object_count, entry.first.getObj() + 1);
    output.write(file);
    if (!appendix.is_empty()) output.write(appendix.finish(next_trailer(pdf.qpdf()), object_count, *table));
    return true;
}

}  // namespace foliant::hosts::acrobat::structure
