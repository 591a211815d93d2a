#pragma once

#include <com/sun/star/beans/PropertyValue.hpp>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/office/word/page_styles.h"

namespace foliant::hosts::office {

/// The font of all that the text of a document holds, its headers and footers excepted. What is set here
/// overrides the document's own formatting, in every script. Reading gives what the text begins with. One of
/// these lives as long as its document; a layout is paused (see LayoutPause) while it is changed.
///
/// The paragraphs of a plain text have one style, which is changed then: a megabyte of text has many of them.
class ContentFont {
  public:
    explicit ContentFont(const DocumentModel& document);

    std::string name() const;
    void set_name(const std::string& name);

    float points() const;
    void set_points(float points);

    bool is_bold() const;
    void set_bold(bool bold);

    bool is_italic() const;
    void set_italic(bool italic);

    bool is_underlined() const;
    void set_underlined(bool underlined);

    /// Red * 65536 + green * 256 + blue; -1 is the automatic colour.
    std::int32_t color() const;
    void set_color(std::int32_t color);

    /// Gives the text back the formatting that its styles say.
    void reset();

  private:
    template <class T>
    void set_in_all_scripts(std::string_view property, const T& value);

    PageStyle content_;  ///< a cursor over everything, or the style of a plain text's paragraphs
    std::vector<com::sun::star::beans::PropertyValue> former_;  ///< what that style said
};

}  // namespace foliant::hosts::office
