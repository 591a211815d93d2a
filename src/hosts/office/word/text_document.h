#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "hosts/office/print/office_document.h"
#include "hosts/office/word/document.h"

namespace foliant::hosts::office {

class ContentFont;

/// A text document open in LibreOffice.
class TextDocument : public OfficeDocument, public Document {
  public:
    explicit TextDocument(std::unique_ptr<LoadedDocument> loaded);
    ~TextDocument() override;

    void close() override { OfficeDocument::close(); }
    bool is_open() const noexcept override { return OfficeDocument::is_open(); }
    int page_count() const override { return OfficeDocument::page_count(); }

    void set_orientation(bool landscape) override;
    bool is_landscape() const override;
    float margin(Edge edge) const override;
    void set_margin(Edge edge, float points) override;
    /// The layout waits while the font is used.
    void with_content_font(const std::function<void(TextFont&)>& use) override;
    void add_page_number(PageBand band, NumberAlignment alignment, bool on_first_page) override;

  private:
    std::unique_ptr<ContentFont> content_font_;  ///< once somebody has asked for it
};

}  // namespace foliant::hosts::office
