#include "hosts/distiller/protector/protect_pdf.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFWriter.hh>
#include <stdexcept>
#include <string>
#include <sys/random.h>
#include <system_error>

namespace foliant::hosts::distiller::protector {
namespace {

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

Stream open_stream(int descriptor, const char* mode) {
    Stream stream(::fdopen(descriptor, mode), std::fclose);
    if (!stream) throw std::system_error(errno, std::generic_category(), "a file was not handed over");
    return stream;
}

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

void write_locked(QPDF& pdf, std::FILE* locked, const Security& security, const std::string& owner) {
    QPDFWriter writer(pdf, "the protected PDF", locked, false);
    writer.setR6EncryptionParameters(
        security.open_password.c_str(), owner.c_str(), security.allow_accessibility, security.allow_copying,
        security.allow_changing, security.allow_changing, security.allow_changing, security.allow_changing,
        security.allow_printing ? qpdf_r3p_full : qpdf_r3p_none, true);
    writer.write();
    if (std::fflush(locked) != 0)
        throw std::system_error(errno, std::generic_category(), "it cannot be written");
}

void require_locked(std::FILE* locked, const std::string& owner) {
    if (std::fseek(locked, 0, SEEK_SET) != 0)
        throw std::system_error(errno, std::generic_category(), "it cannot be read again");
    QPDF written;
    written.setSuppressWarnings(true);
    written.processFile("the protected PDF", locked, false, owner.c_str());
    if (!written.isEncrypted()) throw std::runtime_error("it came out unprotected");
}

}  // namespace

void protect_pdf(int plain, int locked, const Security& security) {
    const Stream input = open_stream(plain, "rb");
    const Stream output = open_stream(locked, "w+b");
    const std::string owner = security.owner_password.empty() ? random_password() : security.owner_password;
    QPDF pdf;
    pdf.setSuppressWarnings(true);
    pdf.processFile("the PDF", input.get(), false);
    write_locked(pdf, output.get(), security, owner);
    require_locked(output.get(), owner);
}

}  // namespace foliant::hosts::distiller::protector
