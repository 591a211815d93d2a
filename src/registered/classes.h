#pragma once

#include <string_view>

/// The names under which other products are registered on a machine. Whoever creates their objects or reads
/// their settings, and whoever stands in for them, has these from here.
namespace foliant::registered {

// Classes of the programs that the library drives, by ProgID or class identifier, as officially spelt.

/// Distiller whose notifications a caller listens to.
inline constexpr std::string_view event_bound_distiller = "{1CD675B2-ECD1-11D1-B976-00600802DB86}";
/// Distiller that applies security as well.
inline constexpr std::string_view security_capable_distiller = "{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}";

inline constexpr std::string_view acrobat = "AcroExch.App";
inline constexpr std::string_view acrobat_viewer = "AcroExch.AVDoc";
inline constexpr std::string_view acrobat_document = "AcroExch.PDDoc";
inline constexpr std::string_view acrobat_rectangle = "AcroExch.Rect";
inline constexpr std::string_view acrobat_bookmark = "AcroExch.PDBookmark";

inline constexpr std::string_view word = "Word.Application";
inline constexpr std::string_view excel = "Excel.Application";
inline constexpr std::string_view powerpoint = "Powerpoint.Application";
inline constexpr std::string_view visio = "Visio.Application";
inline constexpr std::string_view pdfmaker = "AdobePDFMakerX.Word";
inline constexpr std::string_view autocad = "AutoCAD.Application";
inline constexpr std::string_view access = "Access.Application";
inline constexpr std::string_view crystal_reports = "crystal.crpe.application";
inline constexpr std::string_view transfer_control = "InetCtls.Inet";

/// A program that is started by its name, and no class.
inline constexpr std::string_view notepad = "notepad.exe";

}  // namespace foliant::registered
