#include <sstream>

#include "hosts/distiller/fixture.h"

namespace foliant::hosts::distiller {
namespace {

/// A picture of 600 x 600 pixels in a square of two inches: 300 pixels an inch.
constexpr const char* picture =
    "%!\ngsave 100 100 translate 144 144 scale /DeviceRGB setcolorspace\n"
    "<< /ImageType 1 /Width 600 /Height 600 /BitsPerComponent 8 /Decode [0 1 0 1 0 1] /ImageMatrix [600 0 0 "
    "600 0 0]\n"
    "/DataSource { 100 string dup 0 1 99 { rand 255 and put dup } for pop } >> image grestore showpage\n";

/// In the shape of the settings files that Distiller itself saves: all kinds of keys, most of them strange
/// here.
constexpr const char* saved_settings = R"(<<
  /ASCII85EncodePages false
  /AutoRotatePages /PageByPage
  /CalRGBProfile (sRGB IEC61966-2.1)
  /CalCMYKProfile (U.S. Web Coated \050SWOP\051 v2)
  /CannotEmbedFontPolicy /Warning
  /CompatibilityLevel 1.3
  /CompressObjects /Tags
  /DetectCurves 0.0000
  /ColorConversionStrategy /sRGB
  /EmbedAllFonts true
  /EmbedJobOptions true
  /ImageMemory 1048576
  /MaxSubsetPct 100
  /PreserveDICMYKValues true
  /StartPage 1
  /EndPage -1
  /UCRandBGInfo /Remove
  /ColorSettingsFile ()
  /AlwaysEmbed [ true
  ]
  /NeverEmbed [ true
    /Arial-Black
  ]
  /ColorImageMinResolution 150
  /ColorImageMinResolutionPolicy /OK
  /DownsampleColorImages true
  /ColorImageDownsampleType /Bicubic
  /ColorImageResolution 72
  /ColorImageDepth -1
  /ColorImageDownsampleThreshold 1.50000
  /ColorImageAutoFilterStrategy /JPEG
  /ColorACSImageDict <<
    /QFactor 0.40
    /HSamples [1 1 1 1] /VSamples [1 1 1 1]
  >>
  /JPEG2000ColorImageDict <<
    /TileWidth 256
    /TileHeight 256
    /Quality 15
  >>
  /CheckCompliance [
    /None
  ]
  /PDFXTrimBoxToMediaBoxOffset [
    0.00000
    0.00000
    0.00000
    0.00000
  ]
  /PDFXOutputIntentProfile (None)
  /PDFXTrapped /False
  /Description <<
    /ENU (Settings for a test.)
    /FRA <FEFF0055006E0020007400650073007400>
  >>
  /Namespace [
    (Adobe)
    (Common)
    (1.0)
  ]
  /OtherNamespaces [
    <<
      /AsReaderSpreads false
      /Namespace [
        (Adobe)
        (InDesign)
        (4.0)
      ]
    >>
  ]
>> setdistillerparams
<<
  /HWResolution [2400 2400]
  /PageSize [612.000 792.000]
>> setpagedevice
)";

class JobOptions : public DistillerTest {
  protected:
    DistillResult distill_with(const std::string& options, const std::string& postscript) {
        return distill_text(postscript, write("my settings.joboptions", options));
    }
    /// Pixels an inch of the one picture in the output.
    int picture_resolution() const {
        std::istringstream table(output_of("pdfimages -list '" + output.string() + "' | tail -1"));
        std::string word;
        for (int column = 0; column < 13; ++column)
            table >> word;
        return std::stoi(word);
    }
    bool embeds_font(const std::string& name) const {
        const std::string line = output_of("pdffonts '" + output.string() + "' | grep " + name);
        EXPECT_NE(line, "") << "no font " << name;
        const std::string header = output_of("pdffonts '" + output.string() + "' | head -1");
        const std::string embedded = line.substr(header.find("emb"), 3);
        return embedded == "yes";
    }
};

TEST_F(JobOptions, SetTheResolutionOfPictures) {
    ASSERT_TRUE(distill_text(picture).succeeded);
    EXPECT_EQ(picture_resolution(), 300) << "without options";
    ASSERT_TRUE(distill_with("<< /DownsampleColorImages true /ColorImageResolution 100 "
                             "/ColorImageDownsampleThreshold 1.0 >> setdistillerparams",
                             picture)
                    .succeeded);
    EXPECT_EQ(picture_resolution(), 100);
}

TEST_F(JobOptions, SetThePdfVersion) {
    for (const std::string version : {"1.3", "1.4", "1.6"}) {
        ASSERT_TRUE(
            distill_with("<< /CompatibilityLevel " + version + " >> setdistillerparams", plain_pages(1))
                .succeeded);
        EXPECT_EQ(facts_of(output).version, version);
    }
}

TEST_F(JobOptions, DecideWhichFontsAreEmbedded) {
    const std::string times =
        "%!\n/Times-Roman findfont 12 scalefont setfont 72 72 moveto (text) show showpage\n";
    ASSERT_TRUE(distill_text(times).succeeded);
    EXPECT_FALSE(embeds_font("Times")) << "every reader of PDF has this font";
    ASSERT_TRUE(distill_with("<< /NeverEmbed [] >> setdistillerparams", times).succeeded);
    EXPECT_TRUE(embeds_font("Times"));

    const std::string sans =
        "%!\n/DejaVuSans findfont 12 scalefont setfont 72 72 moveto (text) show showpage\n";
    ASSERT_TRUE(distill_text(sans).succeeded);
    EXPECT_TRUE(embeds_font("DejaVu"));
    ASSERT_TRUE(distill_with("<< /EmbedAllFonts false >> setdistillerparams", sans).succeeded);
    EXPECT_FALSE(embeds_font("DejaVu"));
}

TEST_F(JobOptions, SetThePageSize) {
    ASSERT_TRUE(distill_with("<< /PageSize [300 500] >> setpagedevice", plain_pages(1)).succeeded);
    EXPECT_NE(output_of("pdfinfo '" + output.string() + "'").find("300 x 500 pts"), std::string::npos);
}

TEST_F(JobOptions, MayBeAFileThatDistillerSaved) {
    const auto result = distill_with(saved_settings, picture);
    ASSERT_TRUE(result.succeeded) << result.error;
    EXPECT_EQ(picture_resolution(), 72);
    EXPECT_EQ(facts_of(output).version, "1.3");
    EXPECT_NE(output_of("pdfinfo '" + output.string() + "'").find("612 x 792 pts"), std::string::npos);
    EXPECT_TRUE(journal.messages.empty()) << journal.messages.front();
}

TEST_F(JobOptions, ThatAreMissingFailTheJob) {
    const auto missing = folder / "none.joboptions";
    EXPECT_EQ(distill_text(plain_pages(1), missing).error,
              "Cannot read the job-options file " + missing.string() +
                  ": No such file or directory. Give an existing file, or none for the default settings.");
    EXPECT_FALSE(std::filesystem::exists(output));
}

TEST_F(JobOptions, ThatAreAFolderFailTheJob) {
    EXPECT_NE(distill_text(plain_pages(1), folder).error.find("it is not an ordinary file"),
              std::string::npos);
}

TEST_F(JobOptions, ThatAreBrokenFailTheJobByTheirName) {
    EXPECT_EQ(distill_with("<< /CompatibilityLevel 1.4 >> setdistillerparms", plain_pages(1)).error,
              "The job-options file " + (folder / "my settings.joboptions").string() +
                  " failed: undefined in setdistillerparms. Correct it, or convert without it.");
    EXPECT_EQ(distill_with("<< /CompatibilityLevel (high) >> setdistillerparams", plain_pages(1)).error,
              "The job-options file " + (folder / "my settings.joboptions").string() +
                  " failed: typecheck in setdistillerparams. Correct it, or convert without it.");
    EXPECT_FALSE(std::filesystem::exists(output));
}

}  // namespace
}  // namespace foliant::hosts::distiller
