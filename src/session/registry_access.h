#pragma once

#include <cstdint>
#include <string>

#include "automation/value.h"
#include "platform/platform.h"

namespace foliant::session {

/// One open registry key: open, read, write, step up, close.
///
/// No member raises: they answer with a truth value, or with a text in place of a value. Making an object
/// opens nothing; destroying it closes the key.
class clsRegistry {
  public:
    explicit clsRegistry(const platform::Platform& platform) noexcept : platform_(platform) {}
    clsRegistry(const clsRegistry&) = delete;
    clsRegistry& operator=(const clsRegistry&) = delete;
    ~clsRegistry();

    /// Makes (or opens) a key below the open one and stays where it is. False when no key is open or it
    /// failed.
    bool CreateDirectory(const std::string& sNewDirName) noexcept;

    /// Writes a value of type 1, 2 (text), 4 (number) or 7 (several texts: `vWriteThis`, then what
    /// `Multi_SZ_AddtlStrings`, a text or an array, adds). Any other type shows a message box and writes
    /// nothing. A number is stored as the first four bytes of its decimal text, zero bytes after it; clients
    /// read it so.
    bool CreateValue(const std::string& sValueName, const automation::Value& vWriteThis,
                     std::int32_t ldValueDataType,
                     const automation::Value& Multi_SZ_AddtlStrings = automation::Missing{}) noexcept;

    /// The value in a convenient form; "" is the key's unnamed value. A missing value, and any failure
    /// inside, gives an empty value; other refusals give a text that says why. Numbers and binary data come
    /// as their bytes when `ReturnBinStr` is true, else as a dump ("01 00 00 00 "); several texts as an array
    /// from 0 that ends in "".
    automation::Value GetValue(const std::string& VarName, bool ReturnBinStr) noexcept;

    std::uint32_t RegistryRootKey() const noexcept { return root_; }
    const std::string& SubDirectory() const noexcept { return sub_directory_; }

    /// Opens a key below a root. False when the root is 0 (then nothing changes) or the key does not open.
    bool OpenRegistry(std::uint32_t RtHKey, const std::string& sub_key) noexcept;

    /// Opens the key above the open one, the root itself at the end.
    automation::Value OneBackOnKey() noexcept;

    bool CloseRegistry() noexcept;

  private:
    automation::Value read_value(const std::string& name, bool as_bytes);
    bool write_number(const std::string& name, const automation::Value& value);
    bool write_texts(const std::string& name, const automation::Value& first, const automation::Value& more);
    bool write_data(const std::string& name, std::uint32_t type, const std::string& data);

    const platform::Platform& platform_;
    std::uint32_t root_ = 0;
    std::string sub_directory_;
    platform::RegistryKey key_ = 0;
    bool open_ = false;
};

}  // namespace foliant::session
