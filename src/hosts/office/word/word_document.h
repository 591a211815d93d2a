#pragma once

#include <memory>

#include "automation/object.h"
#include "hosts/office/word/running_word.h"

namespace foliant::hosts::office {

/// A document of `session` as automation sees it. Members:
///
///     document          PageSetup, Sections(1), PrintOut(Range, OutputFileName, From, To, Pages), Close
///     PageSetup         Orientation (0 portrait, 1 landscape)
///     section           Headers(1), Footers(1)
///     header or footer  PageNumbers
///     PageNumbers       Add(PageNumberAlignment, FirstPage)
///
/// Only the first section and its primary header and footer are there; other indexes raise 5941. PrintOut and
/// its other arguments: see print_job.h. Close takes False or 0 only, because this Word writes no documents;
/// a document that is closed raises 5825 from every member.
automation::ObjectPtr make_word_document(std::shared_ptr<RunningWord> session,
                                         std::shared_ptr<Document> document);

}  // namespace foliant::hosts::office
