#pragma once

#include <string>
#include <string_view>

namespace foliant::hosts::transfer {

/// A page of the web as it came.
struct FetchedPage {
    std::string address;  ///< where it came from at last, without name and password of a user
    std::string type;     ///< "text/html"; "" where nobody has told
    std::string charset;  ///< "utf-8"; "" where nobody has told
    std::string body;
    bool is_whole = true;  ///< false for what had come when its time was over
};

/// The page as a document that stands alone: it tells its own encoding, and where its links begin. Plain text becomes
/// a page, a picture stays as it is. Raises an automation error for what is no page.
std::string stand_alone(const FetchedPage& page);

/// What belongs to the page and does not stand in it, for the end of a sentence: "its pictures and style sheets"; ""
/// where there is nothing. Scripts count, wherever they stand: nobody runs them.
std::string parts_elsewhere(std::string_view body);

}  // namespace foliant::hosts::transfer
