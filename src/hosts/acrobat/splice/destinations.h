#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "hosts/acrobat/splice/body.h"
#include "hosts/acrobat/splice/copier.h"
#include "hosts/acrobat/splice/plain_document.h"

namespace foliant::hosts::acrobat::splice {

/// The names that places of a document have, of both kinds: texts in a tree, and older ones in a dictionary.
class Destinations {
  public:
    /// Takes those of the file that the document begins as, and what else its tree of names has.
    void begin_with(PlainDocument& first, Copier& copier);

    /// A name that comes with a file, and its place.
    struct Coming {
        std::string name;
        glance::Value place;
        std::string text{};  ///< of the place, once it is copied
    };
    /// What the pages of a file bring. A name that is taken becomes another one, with a number from `suffix` on, and
    /// the copier then changes it wherever it stands. Its pages have to have their stand-ins.
    std::vector<Coming> prepare(PlainDocument& source, Copier& copier, int suffix) const;
    /// Copies their places.
    static void copy(std::vector<Coming>& coming, Copier& copier);
    void add(std::vector<Coming> coming);

    /// The entry of the catalogue; "" where there is nothing to name.
    std::string write(Body& body) const;

  private:
    bool is_taken(const std::string& name) const { return tree_.contains(name) || old_.contains(name); }

    std::map<std::string, std::string> tree_;  ///< with their places, as the file is to have them
    std::set<std::string> old_;                ///< whose dictionary the catalogue has as it was
    std::string other_entries_;                ///< what else "/Names" has
};

}  // namespace foliant::hosts::acrobat::splice
