#include "hosts/acrobat/poppler/poppler_file.h"

#include <GlobalParams.h>
#include <PDFDoc.h>
#include <Stream.h>
#include <TextOutputDev.h>
#include <chrono>
#include <cmath>
#include <mutex>
#include <optional>
#include <utility>

#include "hosts/acrobat/poppler/poppler_words.h"

namespace foliant::hosts::acrobat::text {

namespace {

/// Arranging takes time that grows with the square of the pieces that a page consists of, and worse: 5,000
/// take seconds. A page of fewer letters never has as many.
constexpr std::size_t surely_few_letters = 12'000;
constexpr std::size_t most_pieces_to_arrange = 6'000;
constexpr std::size_t most_letters = 2'000'000;
constexpr std::size_t most_tiny_letters = 50'000;
constexpr auto longest_page = std::chrono::seconds(60);

/// Poppler's settings are one for the process.
void prepare_poppler() {
    static std::once_flag once;
    std::call_once(once, [] {
        if (!globalParams) globalParams = std::make_unique<GlobalParams>();
        setErrorCallback([](ErrorCategory, Goffset, const char*) {});  // damage shows in the result
    });
}

/// Collects the letters of a page, and gives up on one that has too many of them.
class Collector : public TextOutputDev {
  public:
    explicit Collector(bool in_written_order)
        : TextOutputDev(nullptr, false, 0, in_written_order, false), in_written_order_(in_written_order) {}

    /// How many letters the page may have for its words to be arranged at its end.
    void begin(std::size_t most_to_arrange) {
        most_to_arrange_ = most_to_arrange;
        letters_ = 0;
        tiny_ = 0;
        give_up_at_ = std::chrono::steady_clock::now() + longest_page;
    }
    const std::array<double, 6>& from_page() const noexcept { return from_page_; }

    void startPage(int number, GfxState* state, XRef* xref) override {
        TextOutputDev::startPage(number, state, xref);
        const auto& matrix = state->getCTM();
        for (std::size_t i = 0; i < from_page_.size(); ++i)
            from_page_.at(i) = matrix[i];
    }
    void drawChar(GfxState* state, double x, double y, double dx, double dy, double origin_x, double origin_y,
                  CharCode code, int bytes, const Unicode* letters, int count) override {
        if (is_enough()) return;
        // Which are tiny matters only where so many are taken that some are left out.
        const bool may_leave_out = most_to_arrange_ > most_tiny_letters;
        if (may_leave_out && is_tiny(*state, dx, dy) && ++tiny_ > most_tiny_letters) return;
        letters_ += static_cast<std::size_t>(count);
        if (!is_enough())
            TextOutputDev::drawChar(state, x, y, dx, dy, origin_x, origin_y, code, bytes, letters, count);
    }
    void endPage() override {
        if (!is_enough()) TextOutputDev::endPage();
    }

    /// Whether the page is known to have more letters than are to be arranged, so that the others do not matter.
    bool is_enough() const noexcept { return letters_ > most_to_arrange_; }

    /// Whether the page takes more than any real one does.
    bool is_too_much() const {
        return letters_ > most_letters || std::chrono::steady_clock::now() > give_up_at_;
    }

    bool in_written_order() const noexcept { return in_written_order_; }

  private:
    /// Smaller than anybody reads: maps and textures have such by the million. Poppler drops them, too.
    static bool is_tiny(const GfxState& state, double dx, double dy) {
        constexpr double smallest = 3;  // points
        double width = 0;
        double height = 0;
        state.transformDelta(dx, dy, &width, &height);
        return std::fabs(width) < smallest && std::fabs(height) < smallest;
    }

    bool in_written_order_;
    std::size_t most_to_arrange_ = 0;
    std::size_t letters_ = 0;
    std::size_t tiny_ = 0;
    std::chrono::steady_clock::time_point give_up_at_;
    std::array<double, 6> from_page_{1, 0, 0, 1, 0, 0};
};

}  // namespace

struct PopplerFile::Engine {
    Bytes bytes;
    std::unique_ptr<PDFDoc> document;
    Collector arranged{false};
    std::optional<Collector> written;

    /// As pdftotext has it: the whole sheet, turned as it is seen.
    void collect(Collector& collector, int page, std::size_t most_to_arrange) const {
        constexpr double points = 72;
        collector.begin(most_to_arrange);
        const auto gives_up = [](void* data) {
            const auto* const collecting = static_cast<const Collector*>(data);
            return collecting->is_enough() || collecting->is_too_much();
        };
        document->displayPage(&collector, page + 1, points, points, 0, true, false, false, gives_up,
                              &collector);
        if (collector.is_too_much())
            throw Unreadable("page " + std::to_string(page + 1) + " holds more text than any page does");
    }
};

PopplerFile::PopplerFile(Bytes bytes, const std::string& password) {
    prepare_poppler();
    engine_ = std::make_unique<Engine>();
    engine_->bytes = std::move(bytes);
    const std::string_view view = engine_->bytes.view;
    const std::optional<GooString> key{std::in_place, password};
    // The document owns the stream.
    auto stream =
        std::make_unique<MemStream>(view.data(), 0, static_cast<Goffset>(view.size()), Object(objNull));
    engine_->document = std::make_unique<PDFDoc>(stream.release(), key, key);
    if (engine_->document->isOk()) return;
    if (engine_->document->getErrorCode() == errEncrypted) throw WrongPassword();
    throw Unreadable("it is no PDF, or a damaged one");
}

PopplerFile::~PopplerFile() = default;

int PopplerFile::page_count() const {
    return engine_->document->getNumPages();
}

PageText PopplerFile::read(int page) {
    Engine& engine = *engine_;
    if (page < 0 || page >= page_count() || engine.document->getPage(page + 1) == nullptr) return {};
    engine.collect(engine.arranged, page, surely_few_letters);
    if (engine.arranged.is_enough()) {
        if (!engine.written) engine.written.emplace(true);
        engine.collect(*engine.written, page, most_letters);
        const auto words = engine.written->makeWordList();
        if (piece_count(*words) > most_pieces_to_arrange)
            return text_in_written_order(*words, engine.written->from_page());
        engine.collect(engine.arranged, page, most_letters);
    }
    return arranged_text(engine.arranged.getFlows(), engine.arranged.from_page());
}

std::unique_ptr<PageSource> open_pages(const Bytes& bytes, const std::string& password) {
    return std::make_unique<PopplerFile>(bytes, password);
}

}  // namespace foliant::hosts::acrobat::text
