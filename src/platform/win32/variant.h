#pragma once

#include <ole2.h>
#include <string>
#include <string_view>
#include <utility>

#include "automation/value.h"

namespace foliant::platform::win32 {

/// Owns one automation string.
class Bstr {
  public:
    /// Raises 7 when memory is exhausted. The text may hold NULs.
    explicit Bstr(std::string_view utf8);
    Bstr(Bstr&& other) noexcept : text_(other.release()) {}
    Bstr& operator=(Bstr&&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR get() const noexcept { return text_; }
    /// Hands the string to the caller.
    BSTR release() noexcept { return std::exchange(text_, nullptr); }

  private:
    BSTR text_;
};

/// UTF-8 of an automation string, NULs inside it included; a null one is "".
std::string from_bstr(BSTR text);
/// A pointer to characters that may be changed is either an automation string, which knows its length, or
/// ends with a NUL; which of them, the compiler cannot tell: `from_bstr(text)` or
/// `to_utf8(std::wstring_view(text))`.
std::string to_utf8(wchar_t* text) = delete;

/// A VARIANT that is cleared when it goes away.
class Variant {
  public:
    Variant() noexcept { VariantInit(&variant_); }
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&variant_); }

    VARIANT& operator*() noexcept { return variant_; }
    const VARIANT& operator*() const noexcept { return variant_; }
    VARIANT* operator->() noexcept { return &variant_; }
    VARIANT* get() noexcept { return &variant_; }

    /// Empties it, and gives the place where a function puts a new one.
    VARIANT* put() noexcept {
        VariantClear(&variant_);
        return &variant_;
    }

  private:
    VARIANT variant_;
};

/// The value in a variant; the variant stays the caller's.
///
/// - Exact: empty, null, Boolean, 16- and 32-bit signed integers, single, double, text, objects
///   (an `IUnknown` is asked for `IDispatch`), and the error that stands for a missing argument.
/// - Nearest type: 8-bit integers become 16-bit ones, other integers 32-bit ones or, beyond their range,
///   doubles; dates, currency and decimals become doubles.
/// - One-dimensional arrays, whatever their lower bound; the elements are converted one by one. Arrays of
///   texts stay such, all others become arrays of any values.
/// - References are followed.
///
/// Raises 13 for what has no counterpart (other errors, records, arrays of several dimensions, an `IUnknown`
/// without `IDispatch`, a null reference) and 9 for an array variable that was never given bounds.
automation::Value to_value(const VARIANT& variant);

/// Puts a value into `target`, an initialised variant whose former content the caller has cleared. The caller
/// clears it later. Objects have to come from outside (see `DispatchObject`); another one raises 13. Raises 7
/// when memory is exhausted; `target` is then left empty.
void put_value(const automation::Value& value, VARIANT& target);

}  // namespace foliant::platform::win32
