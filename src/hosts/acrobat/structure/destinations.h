#pragma once

#include "hosts/acrobat/structure/insertion.h"
#include "hosts/acrobat/structure/name_tree.h"

namespace foliant::hosts::acrobat::structure {

/// What the names of a document's /Names stand for, one tree of them: destinations or attached files.
class NamedObjects {
  public:
    /// `key` is "/Dests" or "/EmbeddedFiles".
    NamedObjects(Pdf& pdf, std::string key);

    /// Adds an object, under another name where that is taken.
    std::string name_for(const std::string& wanted, const Insertion& insertion) const;
    void add(const std::string& name, QPDFObjectHandle object);

    bool contains(const std::string& name) const { return names_.contains(name); }

    /// Writes what was added into the document.
    void settle();

  private:
    Pdf& pdf_;
    std::string key_;
    Names names_;
    bool is_changed_ = false;
};

/// The named destinations of a document, of both kinds: those in the tree, and those of old files in a
/// dictionary of the catalogue.
class Destinations {
  public:
    explicit Destinations(Pdf& pdf);

    /// Names the source's destinations in the target, for the copier; before anything is copied.
    void prepare(const Insertion& insertion);
    /// Adds those that lead to inserted pages.
    void add();
    void settle() { tree_.settle(); }

  private:
    struct Coming {
        std::string name;
        QPDFObjectHandle destination;  ///< the source's
    };

    NamedObjects tree_;
    Names old_names_;
    std::vector<Coming> coming_;
    ObjectCopier* copier_ = nullptr;
};

/// Whether a destination, an array or a dictionary with one, leads to a page that is copied.
bool leads_to_copied_page(QPDFObjectHandle destination, const ObjectCopier& copier);

/// Adds the attached files of the source.
void add_attachments(NamedObjects& attachments, const Insertion& insertion);

}  // namespace foliant::hosts::acrobat::structure
