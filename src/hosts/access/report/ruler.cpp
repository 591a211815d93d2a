#include "hosts/access/report/ruler.h"

#include <algorithm>

namespace foliant::hosts::access {
namespace {

constexpr double measured_size = 100;  // large enough to be exact

}  // namespace

std::string report_font(double size, bool is_bold) {
    return std::string("Arial, Liberation Sans, DejaVu Sans, sans-serif") + (is_bold ? " Bold " : " ") +
           std::to_string(size).substr(0, 4);
}

Ruler::Ruler(const pages::PageWriter& writer, bool is_bold)
    : layout_(writer.make_layout(report_font(measured_size, is_bold).c_str())) {}

ColumnNeed Ruler::need(std::string_view text) {
    ColumnNeed need;
    double line = 0;
    double word = 0;
    for (const char* at = text.data(); at < text.data() + text.size();) {
        const char* const next = std::min<const char*>(g_utf8_next_char(at), text.data() + text.size());
        if (*at == '\n') line = 0;
        if (*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t') word = 0;
        if (*at != '\n' && *at != '\r') line += width({at, static_cast<std::size_t>(next - at)});
        if (*at != ' ' && *at != '\n' && *at != '\r' && *at != '\t')
            word += width({at, static_cast<std::size_t>(next - at)});
        need.natural = std::max(need.natural, line);
        need.least = std::max(need.least, word);
        at = next;
    }
    return need;
}

double Ruler::width(std::string_view letter) {
    if (letter.size() == 1) {
        double& known = ascii_[static_cast<unsigned char>(letter[0]) & 0x7FU];
        return known > 0 ? known : known = measure(letter == "\t" ? "        " : letter);
    }
    const auto [known, is_new] = others_.try_emplace(std::string(letter), 0);
    if (is_new) known->second = measure(letter);
    return known->second;
}

double Ruler::measure(std::string_view letter) {
    pango_layout_set_text(layout_.get(), letter.data(), static_cast<int>(letter.size()));
    int units = 0;
    pango_layout_get_size(layout_.get(), &units, nullptr);
    return static_cast<double>(units) / PANGO_SCALE / measured_size;
}

}  // namespace foliant::hosts::access
