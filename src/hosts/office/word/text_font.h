#pragma once

#include <cstdint>
#include <string>

namespace foliant::hosts::office {

/// The font of all that the text of a document holds, its headers and footers excepted. What is set here overrides the
/// document's own formatting. Reading gives what the text begins with.
class TextFont {
  public:
    TextFont() = default;
    TextFont(const TextFont&) = delete;
    TextFont& operator=(const TextFont&) = delete;
    virtual ~TextFont() = default;

    virtual std::string name() const = 0;
    virtual void set_name(const std::string& name) = 0;

    virtual float points() const = 0;
    virtual void set_points(float points) = 0;

    virtual bool is_bold() const = 0;
    virtual void set_bold(bool bold) = 0;

    virtual bool is_italic() const = 0;
    virtual void set_italic(bool italic) = 0;

    virtual bool is_underlined() const = 0;
    virtual void set_underlined(bool underlined) = 0;

    /// Red * 65536 + green * 256 + blue; -1 is the automatic colour.
    virtual std::int32_t color() const = 0;
    virtual void set_color(std::int32_t color) = 0;

    /// Gives the text back its own formatting.
    virtual void reset() = 0;
};

}  // namespace foliant::hosts::office
