#include "hosts/acrobat/images/tiff_memory.h"

#include <algorithm>
#include <array>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <utility>

#include "hosts/acrobat/images/image_error.h"

namespace foliant::hosts::acrobat::images {

/// What libtiff calls.
struct TiffMemory::Calls {
    static TiffMemory& self(thandle_t handle) { return *static_cast<TiffMemory*>(handle); }

    static std::string_view bytes(const TiffMemory& tiff) {
        return tiff.is_writing_ ? std::string_view(tiff.written_) : tiff.source_;
    }

    static tmsize_t read(thandle_t handle, void* to, tmsize_t count) {
        TiffMemory& tiff = self(handle);
        const std::string_view all = bytes(tiff);
        const std::string_view part =
            tiff.position_ < all.size() ? all.substr(tiff.position_, static_cast<std::size_t>(count)) : "";
        std::memcpy(to, part.data(), part.size());
        tiff.position_ += part.size();
        return static_cast<tmsize_t>(part.size());
    }

    static tmsize_t write(thandle_t handle, void* from, tmsize_t count) {
        TiffMemory& tiff = self(handle);
        const auto size = static_cast<std::size_t>(count);
        if (!tiff.is_writing_) return 0;
        if (tiff.written_.size() < tiff.position_ + size) tiff.written_.resize(tiff.position_ + size);
        std::memcpy(tiff.written_.data() + tiff.position_, from, size);
        tiff.position_ += size;
        return count;
    }

    static toff_t seek(thandle_t handle, toff_t offset, int from) {
        TiffMemory& tiff = self(handle);
        const std::size_t base = from == SEEK_CUR   ? tiff.position_
                                 : from == SEEK_END ? bytes(tiff).size()
                                                    : 0;
        return tiff.position_ = base + offset;
    }

    static toff_t size(thandle_t handle) { return bytes(self(handle)).size(); }
    static int close(thandle_t) { return 0; }
    /// No mapping: what is beyond the end of a piece has to be noticed.
    static int map(thandle_t, void**, toff_t*) { return 0; }
    static void unmap(thandle_t, void*, toff_t) {}

    static int note(TIFF*, void* data, const char*, const char* format, va_list values) {
        std::array<char, 256> text{};
        std::vsnprintf(text.data(), text.size(), format, values);
        std::string& problem = static_cast<TiffMemory*>(data)->problem_;
        if (problem.empty()) problem = text.data();  // what comes later follows from it
        return 1;
    }
    static int ignore(TIFF*, void*, const char*, const char*, va_list) { return 1; }
};

void TiffMemory::open(const char* mode) {
    const std::unique_ptr<TIFFOpenOptions, decltype(&TIFFOpenOptionsFree)> options(::TIFFOpenOptionsAlloc(),
                                                                                   TIFFOpenOptionsFree);
    ::TIFFOpenOptionsSetErrorHandlerExtR(options.get(), Calls::note, this);
    ::TIFFOpenOptionsSetWarningHandlerExtR(options.get(), Calls::ignore, this);
    tiff_ = ::TIFFClientOpenExt("image", mode, this, Calls::read, Calls::write, Calls::seek, Calls::close,
                                Calls::size, Calls::map, Calls::unmap, options.get());
    require(tiff_ != nullptr);
}

std::unique_ptr<TiffMemory> TiffMemory::read(std::string_view bytes) {
    std::unique_ptr<TiffMemory> tiff(new TiffMemory);
    tiff->source_ = bytes;
    tiff->open("rm");
    return tiff;
}

std::unique_ptr<TiffMemory> TiffMemory::write() {
    std::unique_ptr<TiffMemory> tiff(new TiffMemory);
    tiff->is_writing_ = true;
    tiff->open("w");
    return tiff;
}

TiffMemory::~TiffMemory() {
    if (tiff_ != nullptr) ::TIFFClose(tiff_);
}

void TiffMemory::require(bool done) const {
    if (!done) throw ImageError("the TIFF is damaged" + (problem_.empty() ? "" : " (" + problem_ + ")"));
}

std::string TiffMemory::finish() {
    ::TIFFClose(std::exchange(tiff_, nullptr));
    return std::move(written_);
}

}  // namespace foliant::hosts::acrobat::images
