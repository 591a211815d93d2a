#include "hosts/office/print/draw_pages.h"

#include <GfxFont.h>
#include <GfxState.h>
#include <GlobalParams.h>
#include <PDFDoc.h>
#include <PSOutputDev.h>
#include <Stream.h>
#include <algorithm>
#include <array>
#include <memory>
#include <numeric>
#include <vector>

#include "hosts/office/print/pdf_to_postscript.h"
#include "hosts/office/print/postscript_drawing.h"

namespace foliant::hosts::office {

namespace {

using Matrix = std::array<double, 6>;

Matrix matrix_of(const GfxState& state) {
    Matrix matrix{};
    std::copy_n(state.getCTM(), matrix.size(), matrix.begin());
    return matrix;
}

/// Writes plain text itself, and leaves all else to poppler.
class Writer : public PSOutputDev {
  public:
    /// `drawing` outlives it: a trailer is written at its end.
    Writer(PostScriptDrawing& drawing, PDFDoc& document, const std::vector<int>& numbers)
        : PSOutputDev(take, &drawing, nullptr, &document, numbers, psModePS, -1, -1, false, false),
          drawing_(drawing) {}
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() override = default;

    void startPage(int number, GfxState* state, XRef* table) override {
        PSOutputDev::startPage(number, state, table);
        page_matrix_ = matrix_of(*state);
    }

    void saveState(GfxState* state) override {
        drawing_.save([&] { PSOutputDev::saveState(state); });
    }
    void restoreState(GfxState* state) override {
        drawing_.restore([&] { PSOutputDev::restoreState(state); });
    }
    void updateCTM(GfxState* state, double m11, double m12, double m21, double m22, double m31,
                   double m32) override {
        drawing_.hold([&] { PSOutputDev::updateCTM(state, m11, m12, m21, m22, m31, m32); });
    }
    void updateLineDash(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateLineDash(state); });
    }
    void updateFlatness(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateFlatness(state); });
    }
    void updateLineJoin(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateLineJoin(state); });
    }
    void updateLineCap(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateLineCap(state); });
    }
    void updateMiterLimit(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateMiterLimit(state); });
    }
    void updateLineWidth(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateLineWidth(state); });
    }
    void updateFillColorSpace(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateFillColorSpace(state); });
    }
    void updateStrokeColorSpace(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateStrokeColorSpace(state); });
    }
    void updateFillColor(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateFillColor(state); });
    }
    void updateStrokeColor(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateStrokeColor(state); });
    }
    void updateFont(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateFont(state); });
    }
    void updateTextMat(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateTextMat(state); });
    }
    void updateCharSpace(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateCharSpace(state); });
    }
    void updateRender(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateRender(state); });
    }
    void updateRise(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateRise(state); });
    }
    void updateWordSpace(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateWordSpace(state); });
    }
    void updateHorizScaling(GfxState* state) override {
        drawing_.hold([&] { PSOutputDev::updateHorizScaling(state); });
    }
    /// Every piece of text says where it stands.
    void updateTextPos(GfxState* /*state*/) override {}
    void updateTextShift(GfxState* /*state*/, double /*shift*/) override {}
    void saveTextPos(GfxState* /*state*/) override {}
    void restoreTextPos(GfxState* /*state*/) override {}

    void drawString(GfxState* state, const GooString* text) override {
        if (is_plain(*state)) {
            drawing_.add_plain_text(*state, text->toStr());
            return;
        }
        drawing_.move_to(state->getCurX(), state->getCurY());
        PSOutputDev::drawString(state, text);
    }

  private:
    static void take(void* drawing, const char* bytes, std::size_t size) {
        static_cast<PostScriptDrawing*>(drawing)->take({bytes, size});
    }

    bool is_plain(GfxState& state) const {
        constexpr std::array<double, 4> upright{1, 0, 0, 1};
        const auto& font = state.getFont();
        if (!font || font->isCIDFont() || font->getType() == fontType3 || font->getWMode() != 0) return false;
        constexpr double smallest = 1e-3;  // points; what cannot be seen is poppler's matter
        const GfxColorSpaceMode colors = state.getFillColorSpace()->getMode();
        return (colors == csDeviceGray || colors == csDeviceRGB) && state.getFontSize() >= smallest &&
               state.getRender() == 0 && state.getRise() == 0 && !state.getFillOverprint() &&
               state.getHorizScaling() == 1 &&
               std::equal(upright.begin(), upright.end(), state.getTextMat()) &&
               matrix_of(state) == page_matrix_;
    }

    PostScriptDrawing& drawing_;
    Matrix page_matrix_{};
};

/// The document without its output intent, a colour profile that poppler would prepare afresh for every page,
/// which takes ten times as long as all the rest. Overwriting the key leaves every offset as it is.
std::string without_output_intent(std::string_view pdf) {
    constexpr std::string_view key = "/OutputIntents";
    constexpr std::string_view unknown_key = "/NutputIntents";
    std::string result(pdf);
    if (const std::size_t place = result.rfind(key); place != std::string::npos)
        result.replace(place, key.size(), unknown_key);
    return result;
}

}  // namespace

std::string draw_pages(std::string_view pdf) {
    if (!globalParams) globalParams = std::make_unique<GlobalParams>();
    const std::string source = without_output_intent(pdf);
    // The document owns the stream.
    auto stream =
        std::make_unique<MemStream>(source.data(), 0, static_cast<Goffset>(source.size()), Object(objNull));
    PDFDoc document(stream.release());
    if (!document.isOk()) throw PostScriptFailure("the PDF cannot be read");
    std::vector<int> pages(static_cast<std::size_t>(document.getNumPages()));
    std::iota(pages.begin(), pages.end(), 1);
    PostScriptDrawing drawing;
    {
        Writer writer(drawing, document, pages);
        if (!writer.isOk()) throw PostScriptFailure("it has no pages");
        constexpr double points = 72;
        for (const int page : pages)
            document.displayPage(&writer, page, points, points, 0, false, true, false);
    }
    return drawing.text();
}

}  // namespace foliant::hosts::office
