#pragma once

/// How a page of Word's is set up, whoever lays it out: LibreOffice, or this program a plain text. Lengths are in 1/100 mm.
namespace foliant::hosts::office {

constexpr int least_room = 500;  ///< for the text, between opposite margins
constexpr int edge_distance =
    1270;  ///< of a header or footer: half an inch from the paper's edge, Word's own
constexpr int least_height =
    100;  ///< of a header or footer, which grows with its text; this is where it starts

}  // namespace foliant::hosts::office
