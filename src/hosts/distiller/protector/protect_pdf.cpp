#include "hosts/distiller/protector/protect_pdf.h"

#include <array>
#include <cerrno>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <string>
#include <sys/random.h>
#include <system_error>

namespace foliant::hosts::distiller {
namespace {

/// 256 bits from the system, as text.
std::string random_password() {
    std::array<unsigned char, 32> bytes{};
    if (::getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        throw std::system_error(errno, std::generic_category(), "no random owner password");
    }
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (const unsigned char byte : bytes) {
        text += digits[byte >> 4];
        text += digits[byte & 15];
    }
    return text;
}

}  // namespace

extern "C" __attribute__((visibility("default"))) void foliant_protect_pdf(
    const std::filesystem::path& plain, const std::filesystem::path& locked, const Security& security) {
    const std::string owner = security.owner_password.empty() ? random_password() : security.owner_password;
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processFile(plain.c_str());
    QPDFWriter writer(pdf, locked.c_str());
    writer.setR6EncryptionParameters(
        security.open_password.c_str(), owner.c_str(), security.allow_accessibility, security.allow_copying,
        security.allow_changing, security.allow_changing, security.allow_changing, security.allow_changing,
        security.allow_printing ? qpdf_r3p_full : qpdf_r3p_none, true);
    writer.write();
}

static_assert(std::is_same_v<decltype(&foliant_protect_pdf), ProtectPdf>);

}  // namespace foliant::hosts::distiller
