#pragma once

#include <cstddef>
#include <map>
#include <string>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/copier.h"
#include "hosts/acrobat/splice/plain_document.h"

namespace foliant::hosts::acrobat::splice {

/// How the pages of a document are numbered: how each range of them is, by its first page, from 0.
class PageLabels {
  public:
    /// Those of a file, copied; none where it says nothing of them.
    static PageLabels of(PlainDocument& document, Copier& copier);

    /// Adds those of a file whose `count` pages come behind the `before` that are there. Each page keeps its label.
    void append(const PageLabels& coming, std::size_t before, std::size_t count);

    /// The entry of the catalogue; "" where pages have no labels.
    std::string write(Body& body) const;

  private:
    std::map<std::size_t, std::string> ranges_;  ///< as the file is to have them
};

}  // namespace foliant::hosts::acrobat::splice
