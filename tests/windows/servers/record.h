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

/// A file's bytes; "" when there is none.
std::string read_file(const std::wstring& path);

/// A variant with its exact type: `BSTR "a"`, `I2 4`, `BOOL True`, `missing`, `EMPTY`, `I2 by reference`.
std::string describe(const VARIANT& variant);

}  // namespace foliant::tests::servers
