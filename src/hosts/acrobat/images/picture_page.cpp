#include "hosts/acrobat/images/picture_page.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QUtil.hh>

namespace foliant::hosts::acrobat::images {
namespace {

constexpr double points_an_inch = 72;
constexpr double default_resolution = 72;  // what a PDF maker takes where an image says nothing
constexpr double smallest_page = 3;        // points; what readers show of a page ends there
constexpr double largest_page = 14400;     // units

/// Writes pieces of memory that stay where they are.
void add_stream(QPDFObjectHandle& stream, const Pixels& pixels) {
    const auto parse = [](const std::string& text) {
        return text.empty() ? QPDFObjectHandle::newNull() : QPDFObjectHandle::parse(text);
    };
    stream.replaceStreamData(
        [content = pixels.content, pieces = pixels.pieces](Pipeline* out) {
            for (const std::string_view piece : pieces)
                out->write(reinterpret_cast<const unsigned char*>(piece.data()), piece.size());
            out->finish();
        },
        parse(pixels.filter), parse(pixels.parameters));
    stream.setFilterOnWrite(false);  // it is compressed as well as it will be
}

QPDFObjectHandle device_colours(int components) {
    return QPDFObjectHandle::newName(components == 1   ? "/DeviceGray"
                                     : components == 4 ? "/DeviceCMYK"
                                                       : "/DeviceRGB");
}

QPDFObjectHandle base_colours(QPDF& pdf, const Colours& colours) {
    if (colours.icc_profile.empty()) return device_colours(colours.components);
    QPDFObjectHandle profile = pdf.newStream(colours.icc_profile);
    profile.getDict().replaceKey("/N", QPDFObjectHandle::newInteger(colours.components));
    profile.getDict().replaceKey("/Alternate", device_colours(colours.components));
    return QPDFObjectHandle::newArray({QPDFObjectHandle::newName("/ICCBased"), profile});
}

QPDFObjectHandle colour_space(QPDF& pdf, const Colours& colours) {
    QPDFObjectHandle base = base_colours(pdf, colours);
    if (colours.palette.empty()) return base;
    const auto last = static_cast<long long>(colours.palette.size() / 3) - 1;
    return QPDFObjectHandle::newArray({QPDFObjectHandle::newName("/Indexed"), base,
                                       QPDFObjectHandle::newInteger(last),
                                       QPDFObjectHandle::newString(colours.palette)});
}

QPDFObjectHandle make_image(QPDF& pdf, const Pixels& pixels) {
    QPDFObjectHandle image = pdf.newStream();
    QPDFObjectHandle facts = image.getDict();
    facts.replaceKey("/Type", QPDFObjectHandle::newName("/XObject"));
    facts.replaceKey("/Subtype", QPDFObjectHandle::newName("/Image"));
    facts.replaceKey("/Width", QPDFObjectHandle::newInteger(pixels.width));
    facts.replaceKey("/Height", QPDFObjectHandle::newInteger(pixels.height));
    facts.replaceKey("/BitsPerComponent", QPDFObjectHandle::newInteger(pixels.bits));
    facts.replaceKey("/ColorSpace", colour_space(pdf, pixels.colours));
    const auto put = [&](const char* key, const std::string& value) {
        if (!value.empty()) facts.replaceKey(key, QPDFObjectHandle::parse(value));
    };
    put("/Decode", pixels.decode);
    put("/Mask", pixels.colour_key);
    put("/Matte", pixels.matte);
    add_stream(image, pixels);
    return image;
}

/// A page's size in its own units, and how many points such a unit is.
struct PageSize {
    double width = 0;
    double height = 0;
    double unit = 1;
};

/// A resolution that is none leaves the other; what says nothing, or nonsense, has the usual one.
Resolution usable(Resolution resolution) {
    const auto is_usable = [](double dots) { return std::isfinite(dots) && dots >= 1; };
    if (!is_usable(resolution.across)) resolution.across = resolution.down;
    if (!is_usable(resolution.across)) resolution.across = default_resolution;
    if (!is_usable(resolution.down)) resolution.down = resolution.across;
    return resolution;
}

PageSize page_size(const Picture& picture) {
    const Resolution resolution = usable(picture.resolution);
    const std::uint32_t across = picture.screen ? picture.screen->width : picture.pixels.width;
    const std::uint32_t down = picture.screen ? picture.screen->height : picture.pixels.height;
    PageSize size{across * points_an_inch / resolution.across, down * points_an_inch / resolution.down};
    const double growth = std::max(1.0, smallest_page / std::min(size.width, size.height));
    size.unit = std::max(1.0, std::ceil(std::max(size.width, size.height) * growth / largest_page));
    size.width *= growth / size.unit;
    size.height *= growth / size.unit;
    return size;
}

int rotation_of(Orientation orientation) {
    switch (orientation) {
        case 3:
        case 4:
            return 180;
        case 6:
        case 7:
            return 90;
        case 5:
        case 8:
            return 270;
        default:
            return 0;
    }
}

bool is_mirrored(Orientation orientation) {
    return orientation == 2 || orientation == 4 || orientation == 5 || orientation == 7;
}

/// Where the picture is on its screen, which goes from 0 to 1 upwards.
std::string place_of(const Picture& picture) {
    if (!picture.screen) return {};
    const auto [width, height, left, top] = *picture.screen;
    const auto part = [](std::uint32_t pixels, std::uint32_t all) {
        return QUtil::double_to_string(static_cast<double>(pixels) / all, 9);
    };
    return part(picture.pixels.width, width) + " 0 0 " + part(picture.pixels.height, height) + " " +
           part(left, width) + " " + part(height - top - picture.pixels.height, height) + " cm ";
}

std::string content_of(const Picture& picture, const std::string& width, const std::string& height) {
    const std::string matrix = is_mirrored(picture.orientation)
                                   ? "-" + width + " 0 0 " + height + " " + width + " 0"
                                   : width + " 0 0 " + height + " 0 0";
    return "q " + matrix + " cm " + place_of(picture) + "/Image Do Q\n";
}

}  // namespace

void add_page(QPDF& pdf, const Picture& picture) {
    const PageSize size = page_size(picture);
    const std::string width = QUtil::double_to_string(size.width, 4);
    const std::string height = QUtil::double_to_string(size.height, 4);
    QPDFObjectHandle image = make_image(pdf, picture.pixels);
    if (picture.opacity) image.getDict().replaceKey("/SMask", make_image(pdf, *picture.opacity));
    QPDFObjectHandle page = QPDFObjectHandle::parse("<< /Type /Page /MediaBox [0 0 " + width + " " + height +
                                                    "] /Resources << /XObject << >> >> >>");
    page.getKey("/Resources").getKey("/XObject").replaceKey("/Image", image);
    page.replaceKey("/Contents", pdf.newStream(content_of(picture, width, height)));
    if (const int rotation = rotation_of(picture.orientation); rotation != 0)
        page.replaceKey("/Rotate", QPDFObjectHandle::newInteger(rotation));
    if (size.unit > 1)
        page.replaceKey("/UserUnit", QPDFObjectHandle::newInteger(static_cast<long long>(size.unit)));
    QPDFPageDocumentHelper(pdf).addPage(pdf.makeIndirectObject(page), false);
}

}  // namespace foliant::hosts::acrobat::images
