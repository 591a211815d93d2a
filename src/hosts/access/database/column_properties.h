#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace foliant::hosts::access {

/// What a table says of its columns ("Caption", "Format" ...), as texts, by the columns' names.
using ColumnProperties = std::map<std::string, std::map<std::string, std::string>>;

/// Reads them from the bytes that a database keeps of a table. What is damaged in them is left out. `to_utf8` turns the
/// database's texts into UTF-8.
ColumnProperties read_column_properties(std::string_view bytes,
                                        const std::function<std::string(std::string_view)>& to_utf8);

/// A long text with formats, which Access keeps as HTML, without them: "<div>a&amp;b</div>" is "a&b".
std::string without_formats(std::string_view html);

}  // namespace foliant::hosts::access
