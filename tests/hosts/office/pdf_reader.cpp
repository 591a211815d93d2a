#include "hosts/office/pdf_reader.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <poppler.h>
#include <sstream>
#include <stdexcept>

namespace foliant::hosts::office::test {

namespace {

std::string taken(char* text) {
    const std::string result = text ? text : "";
    g_free(text);
    return result;
}

std::string trimmed(const std::string& text) {
    const std::size_t start = text.find_first_not_of(" \t\r\f");
    if (start == std::string::npos) return "";
    return text.substr(start, text.find_last_not_of(" \t\r\f") - start + 1);
}

}  // namespace

struct PdfReader::Page {
    std::shared_ptr<PopplerPage> page;
};

PdfReader::PdfReader(const std::filesystem::path& path) {
    char* uri = g_filename_to_uri(std::filesystem::absolute(path).c_str(), nullptr, nullptr);
    GError* error = nullptr;
    PopplerDocument* document = poppler_document_new_from_file(uri, nullptr, &error);
    g_free(uri);
    if (!document) throw std::runtime_error(path.string() + ": " + error->message);
    document_.reset(document, [](PopplerDocument* object) { g_object_unref(object); });
}

PdfReader::~PdfReader() = default;

PdfReader::Page PdfReader::page(int number) const {
    PopplerPage* page = poppler_document_get_page(document_.get(), number - 1);
    if (!page) throw std::runtime_error("no page " + std::to_string(number));
    return {std::shared_ptr<PopplerPage>(page, [](PopplerPage* object) { g_object_unref(object); })};
}

int PdfReader::pages() const {
    return poppler_document_get_n_pages(document_.get());
}

std::string PdfReader::size(int number) const {
    double width = 0;
    double height = 0;
    poppler_page_get_size(page(number).page.get(), &width, &height);
    return std::to_string(std::lround(width)) + " x " + std::to_string(std::lround(height));
}

std::string PdfReader::text(int number) const {
    std::istringstream lines(taken(poppler_page_get_text(page(number).page.get())));
    std::string text;
    for (std::string line; std::getline(lines, line);)
        if (line = trimmed(line); !line.empty()) text += (text.empty() ? "" : " / ") + line;
    return text;
}

std::string PdfReader::title() const {
    return taken(poppler_document_get_title(document_.get()));
}

PdfReader::Place PdfReader::place(int number, const std::string& words) const {
    const Page found = page(number);
    double width = 0;
    double height = 0;
    poppler_page_get_size(found.page.get(), &width, &height);
    GList* matches = poppler_page_find_text(found.page.get(), words.c_str());
    if (!matches) throw std::runtime_error("\"" + words + "\" is not on page " + std::to_string(number));
    const auto* first = static_cast<PopplerRectangle*>(matches->data);
    const Place place{first->x1, height - first->y2};
    g_list_free_full(matches, [](void* box) { poppler_rectangle_free(static_cast<PopplerRectangle*>(box)); });
    return place;
}

double PdfReader::right_end(int number, double top, double bottom) const {
    const Page found = page(number);
    double width = 0;
    double height = 0;
    poppler_page_get_size(found.page.get(), &width, &height);
    const auto columns = static_cast<int>(std::ceil(width));
    const auto rows = static_cast<int>(std::ceil(height));
    const auto last = std::min(rows, static_cast<int>(std::ceil(bottom)));
    std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, columns, rows), cairo_surface_destroy);
    cairo_t* context = cairo_create(surface.get());
    poppler_page_render(found.page.get(), context);
    cairo_destroy(context);
    cairo_surface_flush(surface.get());
    const unsigned char* pixels = cairo_image_surface_get_data(surface.get());
    const int stride = cairo_image_surface_get_stride(surface.get());
    for (int column = columns - 1; column >= 0; --column)
        for (int row = static_cast<int>(top); row < last; ++row) {
            std::uint32_t pixel = 0;
            std::memcpy(&pixel, pixels + row * stride + column * 4, sizeof pixel);
            if (pixel != 0) return column + 1;
        }
    return 0;
}

PdfReader::Look PdfReader::look(int number, const std::string& words) const {
    const Page found = page(number);
    const std::string text = taken(poppler_page_get_text(found.page.get()));
    const std::size_t byte = text.find(words);
    if (byte == std::string::npos)
        throw std::runtime_error("\"" + words + "\" is not on page " + std::to_string(number));
    const auto index = g_utf8_pointer_to_offset(text.c_str(), text.c_str() + byte);
    GList* runs = poppler_page_get_text_attributes(found.page.get());
    Look look{};
    for (const GList* each = runs; each != nullptr; each = each->next) {
        const auto* run = static_cast<PopplerTextAttributes*>(each->data);
        if (index < run->start_index || index > run->end_index) continue;
        char color[8];
        std::snprintf(color, sizeof color, "#%02x%02x%02x", run->color.red >> 8U, run->color.green >> 8U,
                      run->color.blue >> 8U);
        look = {run->font_name, run->font_size, color};
    }
    poppler_page_free_text_attributes(runs);
    return look;
}

}  // namespace foliant::hosts::office::test
