#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/images/image_pages.h"

namespace foliant::hosts::acrobat {
namespace {

using namespace std::string_literals;
using automation::Value;
using images::Content;
using images::ImageError;
using tests::read_file;

namespace fs = std::filesystem;

fs::path made(const std::string& name) {
    return fs::path(ACROBAT_IMAGES) / name;
}

/// The PDF of an image, and what is wrong with the image when there is none.
struct Conversion {
    std::shared_ptr<QPDF> pdf = QPDF::create();
    std::string problem;

    explicit Conversion(std::string bytes) {
        pdf->setSuppressWarnings(true);
        pdf->emptyPDF();
        try {
            images::add_image_pages(*pdf, Content(std::move(bytes)));
        } catch (const ImageError& error) {
            problem = error.what();
        }
    }

    QPDFObjectHandle page(std::size_t number = 1) const {
        return QPDFPageDocumentHelper(*pdf).getAllPages().at(number - 1).getObjectHandle();
    }
    QPDFObjectHandle image() const { return page().getKey("/Resources").getKey("/XObject").getKey("/Image"); }
    std::string stored_image() const {
        const auto data = image().getRawStreamData();
        return {reinterpret_cast<const char*>(data->getBuffer()), data->getSize()};
    }
    std::string page_size() const { return page().getKey("/MediaBox").unparse(); }
    void write(const fs::path& path) const {
        QPDFWriter writer(*pdf, path.c_str());
        writer.setLinearization(true);
        writer.write();
    }
};

Conversion conversion_of(const std::string& name) {
    return Conversion(read_file(made(name)));
}

/// The names of the images that were made for these tests.
std::vector<std::string> image_names() {
    std::vector<std::string> names = tests::names_in(ACROBAT_IMAGES);
    std::erase_if(
        names, [](const std::string& name) { return name.ends_with(".rgb") || name.ends_with(".hollow"); });
    return names;
}

/// "P6", a remark, the size, the range, and the rows.
std::string rows_of(const std::string& portable_pixmap, std::size_t size) {
    return portable_pixmap.size() < size ? "" : portable_pixmap.substr(portable_pixmap.size() - size);
}

int largest_difference(const std::string& left, const std::string& right) {
    if (left.size() != right.size()) return 256;
    int largest = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        largest = std::max(
            largest, std::abs(static_cast<unsigned char>(left[i]) - static_cast<unsigned char>(right[i])));
    return largest;
}

TEST(Images, EveryPixelIsSeenAsItWas) {
    const tests::ScratchFolder folder;
    std::string command =
        "gs -q -dBATCH -dNOPAUSE -r72 -sDEVICE=ppmraw -o '" + folder.path().string() + "/%d.ppm'";
    std::vector<std::string> pages;
    for (const std::string& name : image_names()) {
        if (!fs::exists(made(name + ".1.rgb"))) continue;
        const Conversion conversion = conversion_of(name);
        ASSERT_EQ(conversion.problem, "") << name;
        conversion.write(folder / (name + ".pdf"));
        command += " '" + (folder / (name + ".pdf")).string() + "'";
        for (std::size_t i = 1; i <= QPDFPageDocumentHelper(*conversion.pdf).getAllPages().size(); ++i)
            pages.push_back(name + "." + std::to_string(i) + ".rgb");
    }
    ASSERT_EQ(std::system(command.c_str()), 0);
    ASSERT_GT(pages.size(), 40U);
    for (std::size_t i = 0; i < pages.size(); ++i) {
        const std::string expected = read_file(made(pages[i]));
        const std::string seen =
            rows_of(read_file(folder / (std::to_string(i + 1) + ".ppm")), expected.size());
        EXPECT_LE(largest_difference(seen, expected), 1) << pages[i];  // 16 bits are rounded
    }
}

TEST(Images, WhatIsWrittenPassesTheChecksOfQpdf) {
    const tests::ScratchFolder folder;
    for (const std::string& name : image_names()) {
        conversion_of(name).write(folder / "out.pdf");
        const std::string command = "qpdf --check '" + (folder / "out.pdf").string() + "' > '" +
                                    (folder / "said").string() + "' 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << name << ": " << read_file(folder / "said");
    }
}

TEST(Images, AJpegIsCopiedToTheBit) {
    for (const std::string name : {"colours.jpg", "grey.jpg", "progressive.jpg", "inks.jpg"}) {
        const Conversion conversion = conversion_of(name);
        EXPECT_EQ(conversion.stored_image(), read_file(made(name))) << name;
        EXPECT_EQ(conversion.image().getDict().getKey("/Filter").getName(), "/DCTDecode");
    }
}

TEST(Images, WhatFollowsTheEndOfAJpegIsLeftOut) {
    const std::string jpeg = read_file(made("colours.jpg"));
    EXPECT_EQ(Conversion(jpeg + "more").stored_image(), jpeg);
}

TEST(Images, InksOfAdobesProgramsAreTheOtherWayRound) {
    EXPECT_EQ(conversion_of("inks.jpg").image().getDict().getKey("/Decode").unparse(), "[ 1 0 1 0 1 0 1 0 ]");
    std::string unmarked = read_file(made("inks.jpg"));
    unmarked.replace(unmarked.find("Adobe"), 5, "Other");
    EXPECT_TRUE(Conversion(unmarked).image().getDict().getKey("/Decode").isNull());
}

TEST(Images, APngIsCopiedToTheBit) {
    for (const std::string name :
         {"colours.png", "palette.png", "deep.png", "bits.png", "see-through-index.png",
          "half-through-indexes.png", "see-through-colour.png"}) {
        const std::string stored = conversion_of(name).stored_image();
        // Its parts lie in several chunks; the first begins as the whole does.
        const std::string file = read_file(made(name));
        const std::size_t first = file.find("IDAT") + 4;
        EXPECT_EQ(stored.substr(0, 16), file.substr(first, 16)) << name;
        EXPECT_GE(stored.size() + 200 * 12, file.size() - first) << name;
    }
}

TEST(Images, AFaxInOnePieceIsCopiedToTheBit) {
    const Conversion conversion = conversion_of("bits-group4.tif");
    EXPECT_EQ(conversion.image().getDict().getKey("/Filter").getName(), "/CCITTFaxDecode");
    EXPECT_NE(read_file(made("bits-group4.tif")).find(conversion.stored_image()), std::string::npos);
}

TEST(Images, ThePageHasTheSizeThatTheResolutionGives) {
    EXPECT_EQ(conversion_of("colours.png").page_size(), "[ 0 0 61 43 ]");  // says nothing: 72
    EXPECT_EQ(conversion_of("sized.png").page_size(), "[ 0 0 29.28 41.28 ]");
    EXPECT_EQ(conversion_of("sized.jpg").page_size(), "[ 0 0 14.64 10.32 ]");
    EXPECT_EQ(conversion_of("sized.bmp").page_size(), "[ 0 0 45.75 32.25 ]");
    EXPECT_EQ(conversion_of("sized.tif").page_size(), "[ 0 0 21.96 30.96 ]");
}

TEST(Images, ATurnedJpegTurnsItsPage) {
    const auto rotation = [](const std::string& name) {
        QPDFObjectHandle turned = conversion_of(name).page().getKey("/Rotate");
        return turned.isNull() ? 0 : turned.getIntValue();
    };
    EXPECT_EQ(rotation("turned-1.jpg"), 0);
    EXPECT_EQ(rotation("turned-3.jpg"), 180);
    EXPECT_EQ(rotation("turned-6.jpg"), 90);
    EXPECT_EQ(rotation("turned-8.jpg"), 270);
}

TEST(Images, APageThatIsTooLargeForItsUnitsHasLargerOnes) {
    std::string wide = read_file(made("colours.bmp"));
    wide.replace(38, 8, "\x2F\0\0\0\x2F\0\0\0"s);  // 47 dots a metre: 51 inches; the least that counts
    EXPECT_TRUE(Conversion(wide).page().getKey("/UserUnit").isNull());
    std::string jpeg = read_file(made("colours.jpg"));
    const std::size_t size = jpeg.find("\xFF\xC0"s) + 5;
    jpeg.replace(size, 4, "\x40\0\x80\0"s);  // 32768 x 16384
    EXPECT_EQ(Conversion(jpeg).page().getKey("/UserUnit").getIntValue(), 3);
    EXPECT_EQ(Conversion(jpeg).page_size(), "[ 0 0 10922.6667 5461.3333 ]");
}

TEST(Images, WhatIsCutOffIsToldApart) {
    const auto told = [](const std::string& name) {
        const std::string whole = read_file(made(name));
        return Conversion(whole.substr(0, whole.size() / 2)).problem;
    };
    EXPECT_EQ(told("colours.jpg"), "the JPEG is cut off before its end");
    EXPECT_EQ(told("colours.png"), "the PNG is cut off before its end");
    EXPECT_EQ(told("colours.bmp"), "the bitmap is cut off before its end");
    EXPECT_EQ(told("palette.gif"), "the GIF is cut off before its end");
    EXPECT_TRUE(told("colours-raw.tif").starts_with("the TIFF is damaged")) << told("colours-raw.tif");
}

TEST(Images, AHarmedPngIsRefused) {
    std::string png = read_file(made("colours.png"));
    png[png.find("IDAT") + 20] ^= 1;
    EXPECT_EQ(Conversion(png).problem, "the PNG is damaged: the checksum of a part is wrong");
}

TEST(Images, GiganticClaimsAreRefused) {
    const std::string size = "\0\x01\x86\xA0\0\x01\x86\xA0"s;  // 100,000 twice
    const std::string backwards = "\xA0\x86\x01\0\xA0\x86\x01\0"s;
    std::string bmp = read_file(made("colours.bmp"));
    bmp.replace(18, 8, backwards);
    EXPECT_EQ(Conversion(bmp).problem,
              "the bitmap claims 100000 x 100000 pixels; 1024 million are the most that "
              "become a page");
    std::string png = read_file(made("claims.png.hollow"));
    EXPECT_EQ(Conversion(png).problem,
              "the PNG claims 100000 x 100000 pixels; 1024 million are the most that become "
              "a page");
    EXPECT_EQ(conversion_of("hollow.png.hollow").problem,
              "the PNG claims 30000 x 30000 pixels and does not hold them");
}

TEST(Images, HarmNeverCrashesNorHangs) {
    for (const std::string& name : image_names()) {
        const std::string whole = read_file(made(name));
        for (std::size_t i = 0; i < 60; ++i) {
            std::string harmed = whole.substr(0, i % 3 == 0 ? whole.size() * i / 60 : whole.size());
            for (std::size_t k = 0; k < 3 && !harmed.empty(); ++k)
                harmed[(i * 7919 + k * 104729) % std::min<std::size_t>(harmed.size(), 300)] ^=
                    static_cast<char>(1 << (i + k) % 8);
            static_cast<void>(Conversion(harmed));
        }
    }
}

class OpenedImages : public test::AcrobatTest {};

TEST_F(OpenedImages, AnImageOpensAsADocument) {
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("Open", {made("pages.tif").string(), ""}), Value(true));
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{5}));
}

TEST_F(OpenedImages, AnImageThatIsNoneSaysWhy) {
    const std::string path = write("photo.jpg", "\xFF\xD8\xFF\xE0 and no more");
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("Open", {path, ""}), Value(false));
    EXPECT_EQ(tests::failure([&] { viewer.call("GetPDDoc"); }),
              "-2147467259 " + path + " is no image that can be read: the JPEG is cut off before its end.");
}

TEST_F(OpenedImages, WhatIsNoImageIsToldToWhoeverWatches) {
    const auto told = [&](const std::string& name, const std::string& content) {
        const std::string path = write(name, content);
        EXPECT_EQ(new_viewer().call("Open", {path, ""}), Value(false));
        const std::string sentence = machine.failures.back();
        EXPECT_EQ(sentence.find(path), 0U);
        return name + sentence.substr(std::min(path.size(), sentence.size()));
    };
    EXPECT_EQ(told("a.png", "hello"), "a.png is no image that can be read: it is text.");
    EXPECT_EQ(told("a.JPG", "RIFF....WEBPVP8 "), "a.JPG is no image that can be read: it is a WebP image.");
    EXPECT_EQ(told("a.gif", "<!DOCTYPE html>"), "a.gif is no image that can be read: it is a web page.");
    EXPECT_EQ(told("a.bmp", std::string(99, '\0')),
              "a.bmp is no image that can be read: it is nothing but zeros.");
    EXPECT_EQ(told("a.bmp", "\1\2\3"), "a.bmp is no image that can be read: it is of another kind.");
    EXPECT_EQ(
        told("a.doc", "Dear Sir"),
        "a.doc cannot be opened: it is neither a PDF nor an image of a kind that is known here (JPEG, PNG, "
        "TIFF, BMP, GIF); it is text.");
    EXPECT_EQ(machine.failures.size(), 6U);
}

}  // namespace
}  // namespace foliant::hosts::acrobat
