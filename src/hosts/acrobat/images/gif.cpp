#include "hosts/acrobat/images/gif.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <gif_lib.h>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/acrobat/images/image_error.h"
#include "hosts/acrobat/images/row_compressor.h"

namespace foliant::hosts::acrobat::images {
namespace {

[[noreturn]] void fail(int code) {
    if (code == D_GIF_ERR_READ_FAILED || code == D_GIF_ERR_EOF_TOO_SOON)
        throw ImageError("the GIF is cut off before its end");
    const char* reason = ::GifErrorString(code);
    throw ImageError(std::string("the GIF is damaged (") + (reason == nullptr ? "" : reason) + ")");
}

struct Close {
    void operator()(GifFileType* gif) const { ::DGifCloseFile(gif, nullptr); }
};
using Gif = std::unique_ptr<GifFileType, Close>;

int read_bytes(GifFileType* gif, GifByteType* to, int count) {
    auto& left = *static_cast<std::string_view*>(gif->UserData);
    const std::size_t now = std::min(left.size(), static_cast<std::size_t>(count));
    std::memcpy(to, left.data(), now);
    left.remove_prefix(now);
    return static_cast<int>(now);
}

void require(int result, const Gif& gif) {
    if (result != GIF_OK) fail(gif->Error);
}

/// Reads what stands before the first picture; the index that is seen through, or none.
std::optional<int> go_to_picture(const Gif& gif) {
    std::optional<int> transparent;
    while (true) {
        GifRecordType record = UNDEFINED_RECORD_TYPE;
        require(::DGifGetRecordType(gif.get(), &record), gif);
        if (record == IMAGE_DESC_RECORD_TYPE) break;
        if (record != EXTENSION_RECORD_TYPE) throw ImageError("the GIF holds no image");
        int kind = 0;
        GifByteType* block = nullptr;
        require(::DGifGetExtension(gif.get(), &kind, &block), gif);
        while (block != nullptr) {
            GraphicsControlBlock control{};
            if (kind == GRAPHICS_EXT_FUNC_CODE &&
                ::DGifExtensionToGCB(block[0], block + 1, &control) == GIF_OK &&
                control.TransparentColor != NO_TRANSPARENT_COLOR)
                transparent = control.TransparentColor;
            require(::DGifGetExtensionNext(gif.get(), &block), gif);
        }
    }
    require(::DGifGetImageDesc(gif.get()), gif);
    return transparent;
}

std::string palette_of(const Gif& gif) {
    const ColorMapObject* colours = gif->Image.ColorMap != nullptr ? gif->Image.ColorMap : gif->SColorMap;
    if (colours == nullptr) throw ImageError("the GIF has no palette");
    std::string palette;
    for (int i = 0; i < colours->ColorCount; ++i)
        for (const GifByteType part :
             {colours->Colors[i].Red, colours->Colors[i].Green, colours->Colors[i].Blue})
            palette += static_cast<char>(part);
    return palette;
}

std::string compressed_rows(const Gif& gif, std::size_t width, std::size_t height) {
    RowCompressor compressor(RowCompressor::Prediction::none, 1);
    if (!gif->Image.Interlace) {
        std::vector<GifPixelType> row(width);
        for (std::size_t y = 0; y < height; ++y) {
            require(::DGifGetLine(gif.get(), row.data(), static_cast<int>(width)), gif);
            compressor.add(row);
        }
        return compressor.finish();
    }
    struct Pass {
        std::size_t first, step;
    };
    constexpr std::array<Pass, 4> passes{{{0, 8}, {4, 8}, {2, 4}, {1, 2}}};
    std::vector<GifPixelType> all(width * height);
    for (const auto [first, step] : passes)
        for (std::size_t y = first; y < height; y += step)
            require(::DGifGetLine(gif.get(), all.data() + y * width, static_cast<int>(width)), gif);
    compressor.add(all);
    return compressor.finish();
}

/// Pictures may be smaller than the screen that a GIF is made for. What they cover is at least as large.
std::optional<Screen> screen_of(const GifFileType& gif) {
    const GifImageDesc& image = gif.Image;
    const auto extent = [](int screen, int start, int size) {
        return static_cast<std::uint32_t>(std::max(screen, start + size));
    };
    const Screen screen{extent(gif.SWidth, image.Left, image.Width),
                        extent(gif.SHeight, image.Top, image.Height), static_cast<std::uint32_t>(image.Left),
                        static_cast<std::uint32_t>(image.Top)};
    const bool is_covered = screen.width == static_cast<std::uint32_t>(image.Width) &&
                            screen.height == static_cast<std::uint32_t>(image.Height);
    return is_covered ? std::nullopt : std::optional(screen);
}

}  // namespace

Picture read_gif(const Content& file) {
    std::string_view left = file.bytes();
    int error = 0;
    const Gif gif(::DGifOpen(&left, read_bytes, &error));
    if (gif == nullptr) fail(error);
    const std::optional<int> transparent = go_to_picture(gif);
    const auto width = static_cast<std::size_t>(gif->Image.Width);
    const auto height = static_cast<std::size_t>(gif->Image.Height);
    require_reasonable_size(width, height, "GIF");
    Picture picture;
    picture.screen = screen_of(*gif);
    Pixels& pixels = picture.pixels;
    pixels.width = static_cast<std::uint32_t>(width);
    pixels.height = static_cast<std::uint32_t>(height);
    pixels.colours.palette = palette_of(gif);
    pixels.filter = "/FlateDecode";
    pixels.content = Content(compressed_rows(gif, width, height));
    pixels.pieces = {pixels.content.bytes()};
    if (transparent)
        pixels.colour_key = "[" + std::to_string(*transparent) + " " + std::to_string(*transparent) + "]";
    return picture;
}

}  // namespace foliant::hosts::acrobat::images
