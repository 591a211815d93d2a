#pragma once

// What every source file that talks UNO needs. The generated headers are C++98 in spirit: no initializer
// lists for sequences, no conversion between references of related interfaces.

#include <com/sun/star/beans/PropertyValue.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <filesystem>
#include <osl/file.hxx>
#include <rtl/ustring.hxx>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace foliant::hosts::office {

namespace css = com::sun::star;

inline rtl::OUString to_uno(std::string_view utf8) {
    return {utf8.data(), static_cast<sal_Int32>(utf8.size()), RTL_TEXTENCODING_UTF8};
}

inline std::string from_uno(const rtl::OUString& text) {
    const rtl::OString utf8 = rtl::OUStringToOString(text, RTL_TEXTENCODING_UTF8);
    return {utf8.getStr(), static_cast<std::size_t>(utf8.getLength())};
}

/// The file URL of an absolute path.
inline rtl::OUString file_url(const std::filesystem::path& path) {
    rtl::OUString url;
    osl::FileBase::getFileURLFromSystemPath(to_uno(path.string()), url);
    return url;
}

/// A named argument of a UNO call.
template <typename T>
css::beans::PropertyValue uno_argument(std::string_view name, const T& value) {
    css::beans::PropertyValue argument;
    argument.Name = to_uno(name);
    argument.Value <<= value;
    return argument;
}

/// A property of an object, as a T; T's default when the property has no value of that type.
template <typename T>
T uno_property(const css::uno::Reference<css::beans::XPropertySet>& object, std::string_view name) {
    T value{};
    object->getPropertyValue(to_uno(name)) >>= value;
    return value;
}

template <typename T>
void set_uno_property(const css::uno::Reference<css::beans::XPropertySet>& object, std::string_view name,
                      const T& value) {
    object->setPropertyValue(to_uno(name), css::uno::Any(value));
}

template <typename T>
css::uno::Sequence<T> uno_sequence(const std::vector<T>& values) {
    return {values.data(), static_cast<sal_Int32>(values.size())};
}

}  // namespace foliant::hosts::office
