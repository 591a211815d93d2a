#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "hosts/office/word/page_styles.h"
#include "hosts/office/word/text_font.h"

namespace foliant::hosts::office {

/// The font of a document that LibreOffice has open, in every script. One of these lives as long as its document; a
/// layout is paused (see LayoutPause) while it is changed.
class ContentFont : public TextFont {
  public:
    explicit ContentFont(const DocumentModel& document);

    std::string name() const override;
    void set_name(const std::string& name) override;
    float points() const override;
    void set_points(float points) override;
    bool is_bold() const override;
    void set_bold(bool bold) override;
    bool is_italic() const override;
    void set_italic(bool italic) override;
    bool is_underlined() const override;
    void set_underlined(bool underlined) override;
    std::int32_t color() const override;
    void set_color(std::int32_t color) override;
    void reset() override;

  private:
    template <class T>
    void set_in_all_scripts(std::string_view property, const T& value);

    PageStyle content_;  ///< a cursor over everything
};

}  // namespace foliant::hosts::office
