#include "hosts/acrobat/structure/stream_bytes.h"

namespace foliant::hosts::acrobat::structure {

namespace {

bool ends_here(std::string_view rest) {
    if (rest.starts_with("\r\n"))
        rest.remove_prefix(2);
    else if (rest.starts_with("\n") || rest.starts_with("\r"))
        rest.remove_prefix(1);
    return rest.starts_with("endstream");
}

}  // namespace

std::optional<std::string_view> stream_bytes(Pdf& pdf, QPDFObjectHandle stream) {
    if (!pdf.is_as_read() || pdf.qpdf().isEncrypted()) return std::nullopt;
    const std::string_view file = pdf.file()->bytes();
    QPDFObjectHandle length = stream.getDict().getKey("/Length");
    const auto begin = static_cast<unsigned long long>(stream.getParsedOffset());
    if (!length.isInteger() || length.getIntValue() < 0 || begin == 0 || begin > file.size())
        return std::nullopt;
    const auto size = static_cast<unsigned long long>(length.getIntValue());
    if (size > file.size() - begin || !ends_here(file.substr(begin + size))) return std::nullopt;
    return file.substr(begin, size);
}

}  // namespace foliant::hosts::acrobat::structure
