#pragma once

#include <string>
#include <string_view>

namespace foliant::registered {

// Keys of the registry below its two roots.

/// The version of Acrobat, in the unnamed value. For the whole computer.
inline constexpr std::string_view acrobat_version_key = R"(SOFTWARE\Classes\AcroExch.App\AcrobatVersion)";

/// The name of the PDF printer, in the unnamed value. For the whole computer. The key names 6.0 whatever
/// Acrobat is installed: that is where every later one registers its printer, too.
inline constexpr std::string_view pdf_printer_key = R"(SOFTWARE\Adobe\Acrobat Distiller\6.0\PrinterName)";

/// What that printer is called by version "6.0", and by every other.
inline constexpr std::string_view pdf_printer_of_6_0 = "Adobe PDF";
inline constexpr std::string_view usual_pdf_printer = "Acrobat Distiller";

/// How Distiller protects what it makes. For one user.
inline constexpr std::string_view distiller_security_key = R"(Software\Adobe\Acrobat Distiller\6.0\Security)";

/// Where the older PDF printer, Acrobat PDFWriter, finds the file to write. For one user.
inline constexpr std::string_view pdf_writer_key = R"(Software\Adobe\Acrobat PDFWriter)";
inline constexpr std::string_view pdf_writer_target_value = "PDFFilename";

/// The path of a key with its root before it, as settings stores write it.
inline std::string key_of_computer(std::string_view key) {
    return R"(HKEY_LOCAL_MACHINE\)" + std::string(key);
}
inline std::string key_of_user(std::string_view key) {
    return R"(HKEY_CURRENT_USER\)" + std::string(key);
}

}  // namespace foliant::registered
