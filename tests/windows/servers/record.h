#pragma once

#include <ole2.h>
#include <string>

namespace foliant::tests::servers {

/// Names the folder of this process's record.
inline constexpr const wchar_t* record_variable = L"FOLIANT_RECORD_FOLDER";

/// The folder of this process's record; that of temporary files, one for all processes of a user, when
/// nothing names it. Ends with "\".
std::wstring record_folder();

/// The file in that folder, and in any other, that everything is recorded in.
std::wstring record_path();
std::wstring record_path(const std::wstring& folder);

/// Adds a line to it.
void record(const std::string& line);
void record(const std::wstring& folder, const std::string& line);

/// Makes a file with a few bytes in it.
void make_file(const std::wstring& path);

/// The name of the user's default printer.
std::string default_printer();

/// A file's bytes; "" when there is none.
std::string read_file(const std::wstring& path);

/// A recorded object as others of its process know it: its name, behind an identifier of its own that no other
/// process can ask for.
struct RecordedObject : IUnknown {
    virtual const std::string& recorded_name() const = 0;
};
inline constexpr IID recorded_object{
    0x5D7A1E15, 0x3C52, 0x4E0B, {0x9A, 0x41, 0x6C, 0x1D, 0x20, 0x8F, 0x77, 0x03}};

/// A variant with its exact type: `BSTR "a"`, `I2 4`, `BOOL True`, `missing`, `EMPTY`, `I2 by reference`,
/// `DISPATCH Word.Document`.
std::string describe(const VARIANT& variant);

}  // namespace foliant::tests::servers
