#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "hosts/machine.h"
#include "hosts/office/word/document.h"
#include "hosts/office/word/plain_page.h"
#include "hosts/pages/glyphs.h"

namespace foliant::hosts::office {

/// The font of a plain text.
class PlainFont : public TextFont {
  public:
    std::string name() const override { return look_.name; }
    void set_name(const std::string& name) override { look_.name = name; }
    float points() const override { return look_.points; }
    void set_points(float points) override { look_.points = points; }
    bool is_bold() const override { return look_.is_bold; }
    void set_bold(bool bold) override { look_.is_bold = bold; }
    bool is_italic() const override { return look_.is_italic; }
    void set_italic(bool italic) override { look_.is_italic = italic; }
    bool is_underlined() const override { return look_.is_underlined; }
    void set_underlined(bool underlined) override { look_.is_underlined = underlined; }
    std::int32_t color() const override { return look_.color; }
    void set_color(std::int32_t color) override { look_.color = color; }
    void reset() override { look_ = {}; }

  private:
    struct Look {
        std::string name = "Liberation Mono";
        float points = 10;
        bool is_bold = false;
        bool is_italic = false;
        bool is_underlined = false;
        std::int32_t color = -1;
    };
    Look look_;
};

/// A plain text, laid out here: LibreOffice, which takes many times as long to start as a text to be printed, is not
/// needed for it. Its pages look as LibreOffice would have them.
class PlainDocument : public Document {
  public:
    /// `content` is that of the file, in any encoding. `machine` makes its outputs.
    PlainDocument(Machine& machine, std::filesystem::path path, std::string_view content);

    std::string title() const override;
    void export_pdf(std::string_view pages, const std::filesystem::path& output) const override;
    void export_ps(std::string_view pages, const std::filesystem::path& output) const override;

    void close() override;
    bool is_open() const noexcept override { return is_open_; }
    int page_count() const override;

    void set_orientation(bool landscape) override;
    bool is_landscape() const override;
    float margin(Edge edge) const override;
    void set_margin(Edge edge, float points) override;
    void with_content_font(const std::function<void(TextFont&)>& use) override;
    void add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) override;

  private:
    class Layout;

    void require_open() const;
    std::string pdf(std::string_view pages) const;
    std::string postscript(std::string_view pages) const;

    Machine& machine_;
    std::filesystem::path path_;
    std::string text_;  ///< UTF-8; lines end in line feeds
    PlainPage page_;
    PlainFont font_;
    bool is_open_ = true;
};

}  // namespace foliant::hosts::office
