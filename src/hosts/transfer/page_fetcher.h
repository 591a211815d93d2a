#pragma once

#include <chrono>
#include <string>

#include "automation/error.h"
#include "automation/object.h"
#include "hosts/machine.h"

namespace foliant::hosts::transfer {

/// Why a page cannot be had: a sentence without its end.
automation::Error page_error(const std::string& reason);

/// What gets single pages of the web for a machine without a browser. It runs nothing of what it gets, and follows
/// nothing but redirections.
///
/// `Fetch(Address, File)` gets a page by http or https and makes it `File`, `Take(Document, Address, File)` one that
/// lies on a disk, both as documents that stand alone. They return what shows on the page and is not in it, as the end
/// of a sentence ("without its pictures"), "" for nothing, and raise why there is no page, a sentence without its end.
///
/// What has not come after `patience` is not waited for.
automation::ObjectPtr make_page_fetcher(Machine& machine,
                                        std::chrono::milliseconds patience = std::chrono::minutes(1));

}  // namespace foliant::hosts::transfer
