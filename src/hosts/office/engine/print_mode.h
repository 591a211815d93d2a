#pragma once

namespace foliant::hosts::office {

/// Has LibreOffice behave as itself while one of these exists. As LibreOfficeKit, which paints for screens, it does not cut
/// drawings off where a page's drawing area or cells end: in a workbook they reach over the margins, and out of the range
/// that is printed. Of a slide, nothing then ends the cutting off behind the last object, and a photograph that is to be
/// left as it is gets lost there. And it has no country, whose dates a workbook may ask for when it is loaded.
class PrintMode {
  public:
    /// Looks LibreOffice's switch up in its library (a handle of dlopen). Where it is not found objects of this class do
    /// nothing.
    static void prepare(void* library);

    PrintMode();
    PrintMode(const PrintMode&) = delete;
    PrintMode& operator=(const PrintMode&) = delete;
    ~PrintMode();
};

}  // namespace foliant::hosts::office
