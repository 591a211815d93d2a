#pragma once

#include <ole2.h>
#include <string>
#include <string_view>

namespace foliant::tests::servers {

/// The number by which callers send a named argument; the same name has the same number for every object.
DISPID argument_id(const std::string& name);

/// The arguments of one call by place or by name, as they were sent.
class SentArguments {
  public:
    explicit SentArguments(const DISPPARAMS& sent) : sent_(sent) {}

    /// The positional argument at a place, counted from 0; null when there are fewer.
    const VARIANT* at(UINT place) const;
    const VARIANT* named(std::string_view name) const;

    /// The text at a place; "" when there is none.
    std::wstring text(UINT place) const;
    /// The first text that begins with the path of a file, by place or by name; "" when there is none.
    std::wstring file() const;

    /// All of them with their exact types, as they are recorded.
    std::string described() const;

  private:
    const DISPPARAMS& sent_;
};

}  // namespace foliant::tests::servers
