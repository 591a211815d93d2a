#include "hosts/acrobat/splice/spliced_document.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <random>
#include <span>

#include "hosts/acrobat/splice/linearised_file.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

constexpr std::string_view behind_version = "\n%\xE2\xE3\xCF\xD3\n";
constexpr std::size_t header_size = 8 + behind_version.size();
constexpr std::size_t most_children = 32;  // of a node of the page tree

/// "Kids" and what else a node says of those below it.
struct Node {
    std::int32_t number;
    std::size_t pages;
};

std::string reference(std::int32_t number) {
    return std::to_string(number) + " 0 R";
}

std::string node_text(std::span<const Node> children, std::int32_t parent) {
    std::string text = "<< /Type /Pages";
    if (parent != 0) text += " /Parent " + reference(parent);
    text += " /Kids [";
    std::size_t pages = 0;
    for (const Node& child : children) {
        text += " " + reference(child.number);
        pages += child.pages;
    }
    return text + " ] /Count " + std::to_string(pages) + " >>";
}

/// What makes a file another one than those that are like it, as hexadecimal digits.
std::string new_identifier() {
    std::random_device random;
    std::string digits = "<";
    for (int i = 0; i < 4; ++i) {
        char piece[16];
        std::snprintf(piece, sizeof piece, "%08x", random());
        digits += piece;
    }
    return digits + ">";
}

/// What pages bring with them besides links and bookmarks takes the engine.
void require_only_pages(const Value& catalogue) {
    for (const char* key : {"/AcroForm", "/PageLabels", "/StructTreeRoot", "/OCProperties", "/Names",
                            "/Dests", "/Extensions", "/Perms"})
        require(entry(catalogue, key).kind == Kind::null);
}

/// A bookmark that leads elsewhere than to a page of its file has to be looked at.
void require_plain_place(const Value& bookmark, const std::vector<std::int32_t>& pages, Copier& copier) {
    const Value place = entry(bookmark, "/Dest");
    if (place.kind == Kind::null) return;
    Value page;
    require(glance::Items(place).next(page) && page.kind == Kind::reference);
    require(std::binary_search(pages.begin(), pages.end(), copier.number_of(page)));
}

}  // namespace

/// How a bookmark hangs between others: their numbers, 0 for none.
struct SplicedDocument::Links {
    std::int32_t previous = 0;
    std::int32_t next = 0;
    std::int32_t first = 0;
    std::int32_t last = 0;
    std::size_t visible_below = 0;  ///< when it is open
    std::ptrdiff_t last_child = -1;
};

SplicedDocument::SplicedDocument()
    : body_(header_size),
      catalogue_(body_.new_number()),
      page_root_(body_.new_number()),
      information_(Information::of_new_document()) {}

SplicedDocument::SplicedDocument(PlainDocument& first)
    : body_(header_size), catalogue_(body_.new_number()), page_root_(body_.new_number()) {
    Copier copier(first.file(), body_, Copier::Tags::kept);
    const Value catalogue = first.catalogue();
    // Labels grow with the pages, and the signatures in a form are broken, which has to be told.
    for (const char* key : {"/PageLabels", "/AcroForm", "/Perms"})
        require(entry(catalogue, key).kind == Kind::null);
    copier.stand_in(entry(first.file().trailer(), "/Root"), catalogue_);
    copier.stand_in(entry(catalogue, "/Pages"), page_root_);
    add_pages(first, copier, Copier::Tags::kept);
    add_bookmarks(first, copier, Copier::Tags::kept);
    take_catalogue(first, copier);
    take_trailer(first, copier);
    copier.finish();
    version_ = first.version();
    owners_.push_back(first.bytes().owner);
}

void SplicedDocument::take_catalogue(PlainDocument& first, Copier& copier) {
    const Value catalogue = first.catalogue();
    catalogue_entries_.clear();
    copier.copy_entries(catalogue, {"/Pages", "/Outlines", "/Metadata"}, catalogue_entries_);
    const Value packet = entry(catalogue, "/Metadata");
    if (packet.kind != Kind::null) information_.set_packet(first.file().unpacked_stream(packet));
}

void SplicedDocument::take_trailer(PlainDocument& first, Copier& copier) {
    const Value& trailer = first.file().trailer();
    copier.copy_entries(trailer,
                        {"/Size", "/Root", "/Info", "/ID", "/Prev", "/Type", "/W", "/Index", "/Length",
                         "/Filter", "/DecodeParms"},
                        trailer_entries_);
    if (const Value identifiers = entry(trailer, "/ID"); identifiers.kind == Kind::array) {
        Value one;
        require(glance::Items(identifiers).next(one) && one.kind == Kind::other);
        identifier_ = one.text;
    }
    const Value information = first.file().resolved(entry(trailer, "/Info"));
    if (information.kind == Kind::null) return;
    glance::Entries entries(information);
    std::string_view key;
    for (Value value; entries.next(key, value);) {
        std::string text;
        copier.copy(value.text, text);
        information_.add(std::string(key), std::move(text), first.file().resolved(value));
    }
}

void SplicedDocument::append(PlainDocument& source, bool with_bookmarks) {
    require_only_pages(source.catalogue());
    const int version = source.version();
    const Body::Mark before = body_.mark();
    const auto pages = pages_.size();
    const auto nodes = page_nodes_.size();
    const auto bookmarks = bookmarks_.size();
    try {
        Copier copier(source.file(), body_, Copier::Tags::dropped);
        add_pages(source, copier, Copier::Tags::dropped);
        copier.finish();
        if (with_bookmarks) add_bookmarks(source, copier, Copier::Tags::dropped);
        copier.finish();
        owners_.push_back(source.bytes().owner);
    } catch (...) {
        body_.return_to(before);
        pages_.resize(pages);
        page_nodes_.resize(nodes);
        bookmarks_.resize(bookmarks);
        throw;
    }
    version_ = std::max(version_, version);
}

void SplicedDocument::add_pages(PlainDocument& source, Copier& copier, Copier::Tags tags) {
    const std::vector<PlainPage>& pages = source.pages();
    const std::size_t first = pages_.size();
    for (const PlainPage& page : pages) {
        if (pages_.size() % most_children == 0) page_nodes_.push_back(body_.new_number());
        pages_.push_back(body_.new_number());
        copier.stand_in(page.reference, pages_.back());
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        std::string& target = body_.begin_object(pages_[first + i]);
        target += "<< ";
        // Article threads are not taken over, so pages do not refer to them either.
        if (tags == Copier::Tags::dropped)
            copier.copy_entries(pages[i].dictionary, {"/Parent", "/B"}, target);
        else
            copier.copy_entries(pages[i].dictionary, {"/Parent"}, target);
        for (std::size_t key = 0; key < std::size(inherited_keys); ++key) {
            const Value& value = pages[i].inherited[key];
            if (value.kind == Kind::null ||
                entry(pages[i].dictionary, inherited_keys[key]).kind != Kind::null)
                continue;
            target.append(inherited_keys[key]).append(" ");
            copier.copy(value.text, target);
            target += " ";
        }
        target += "/Parent " + reference(page_nodes_[(first + i) / most_children]) + " >>";
        body_.end_object();
    }
}

void SplicedDocument::add_bookmarks(PlainDocument& source, Copier& copier, Copier::Tags tags) {
    const std::vector<PlainBookmark> bookmarks = source.bookmarks();
    const std::ptrdiff_t first = std::ssize(bookmarks_);
    for (const PlainBookmark& bookmark : bookmarks) {
        bookmarks_.push_back({.number = body_.new_number(),
                              .parent = bookmark.parent < 0 ? -1 : first + bookmark.parent,
                              .is_open = bookmark.is_open,
                              .entries = {}});
        copier.stand_in(bookmark.reference, bookmarks_.back().number);
    }
    for (std::size_t i = 0; i < bookmarks.size(); ++i) {
        if (tags == Copier::Tags::dropped) require_plain_place(bookmarks[i].dictionary, pages_, copier);
        copier.copy_entries(bookmarks[i].dictionary,
                            {"/Parent", "/Prev", "/Next", "/First", "/Last", "/Count", "/SE"},
                            bookmarks_[static_cast<std::size_t>(first) + i].entries);
    }
}

void SplicedDocument::write_page_tree(Body& tail) const {
    std::vector<Node> nodes;
    nodes.reserve(pages_.size());
    for (const std::int32_t page : pages_)
        nodes.push_back({page, 1});
    std::vector<std::int32_t> numbers = page_nodes_;
    while (!numbers.empty()) {
        // Those of a level hang from nodes whose numbers are known before them, up to the root.
        const bool is_last = numbers.size() <= most_children;
        std::vector<std::int32_t> above;
        std::vector<Node> parents;
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            if (!is_last && i % most_children == 0) above.push_back(tail.new_number());
            const auto children = std::span<const Node>(nodes).subspan(
                i * most_children, std::min(most_children, nodes.size() - i * most_children));
            tail.put_object(numbers[i], node_text(children, is_last ? page_root_ : above.back()));
            std::size_t pages = 0;
            for (const Node& child : children)
                pages += child.pages;
            parents.push_back({numbers[i], pages});
        }
        nodes = std::move(parents);
        numbers = std::move(above);
    }
    tail.put_object(page_root_, node_text(nodes, 0));
}

std::vector<SplicedDocument::Links> SplicedDocument::links() const {
    std::vector<Links> links(bookmarks_.size() + 1);  // the last one is that of what the outermost hang from
    const auto place_of_parent = [&](std::size_t i) {
        return bookmarks_[i].parent < 0 ? bookmarks_.size() : static_cast<std::size_t>(bookmarks_[i].parent);
    };
    for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
        Links& parent = links[place_of_parent(i)];
        if (parent.last_child < 0) {
            parent.first = bookmarks_[i].number;
        } else {
            const auto before = static_cast<std::size_t>(parent.last_child);
            links[before].next = bookmarks_[i].number;
            links[i].previous = bookmarks_[before].number;
        }
        parent.last = bookmarks_[i].number;
        parent.last_child = static_cast<std::ptrdiff_t>(i);
    }
    for (std::size_t i = bookmarks_.size(); i > 0; --i)
        links[place_of_parent(i - 1)].visible_below +=
            1 + (bookmarks_[i - 1].is_open ? links[i - 1].visible_below : 0);
    return links;
}

void SplicedDocument::write_bookmarks(Body& tail, std::int32_t outlines) const {
    const std::vector<Links> all = links();
    const auto append = [](std::string& text, const char* key, std::int32_t number) {
        if (number != 0) text.append(key).append(reference(number)).append(" ");
    };
    for (std::size_t i = 0; i < bookmarks_.size(); ++i) {
        const Bookmark& bookmark = bookmarks_[i];
        const Links& links = all[i];
        std::string& text = tail.begin_object(bookmark.number);
        text += "<< " + bookmark.entries;
        append(text, "/Parent ",
               bookmark.parent < 0 ? outlines : bookmarks_[static_cast<std::size_t>(bookmark.parent)].number);
        append(text, "/Prev ", links.previous);
        append(text, "/Next ", links.next);
        append(text, "/First ", links.first);
        append(text, "/Last ", links.last);
        if (links.visible_below > 0)
            text += (bookmark.is_open ? "/Count " : "/Count -") + std::to_string(links.visible_below) + " ";
        text += ">>";
        tail.end_object();
    }
    std::string text = "<< /Type /Outlines ";
    append(text, "/First ", all.back().first);
    append(text, "/Last ", all.back().last);
    tail.put_object(outlines, text + "/Count " + std::to_string(all.back().visible_below) + " >>");
}

/// Returns the number of what the bookmarks hang from; 0 for none.
std::int32_t SplicedDocument::write_catalogue(Body& tail, const std::string& packet) const {
    std::string catalogue = "<< " + catalogue_entries_ + "/Pages " + reference(page_root_);
    const std::int32_t outlines = bookmarks_.empty() ? 0 : tail.new_number();
    if (outlines != 0) {
        write_bookmarks(tail, outlines);
        catalogue += " /Outlines " + reference(outlines);
    }
    const std::int32_t metadata = tail.new_number();
    tail.put_object(metadata, "<< /Type /Metadata /Subtype /XML /Length " + std::to_string(packet.size()) +
                                  " >>\nstream\n" + packet + "\nendstream");
    tail.put_object(catalogue_, catalogue + " /Metadata " + reference(metadata) + " >>");
    return outlines;
}

std::string SplicedDocument::header() const {
    return "%PDF-" + std::to_string(version_ / 10) + "." + std::to_string(version_ % 10) +
           std::string(behind_version);
}

SplicedDocument::End SplicedDocument::end() const {
    End end{Body(body_.end(), body_.offsets()), 0, trailer_entries_};
    const Information::Written said = information_.written();
    write_page_tree(end.objects);
    end.outlines = write_catalogue(end.objects, said.packet);
    const std::int32_t information = end.objects.new_number();
    end.objects.put_object(information, said.dictionary);
    const std::string identifier = new_identifier();
    end.trailer += "/Root " + reference(catalogue_) + " /Info " + reference(information) + " /ID [ " +
                   (identifier_.empty() ? identifier : identifier_) + " " + identifier + " ]";
    return end;
}

void SplicedDocument::write(const Body::Write& write) const {
    const End end = this->end();
    const std::vector<std::size_t>& offsets = end.objects.offsets();
    std::string table = "xref\n0 " + std::to_string(offsets.size()) + "\n";
    for (const std::size_t offset : offsets) {
        char line[32];
        std::snprintf(line, sizeof line, offset == 0 ? "%010zu 65535 f \n" : "%010zu 00000 n \n", offset);
        table += line;
    }
    table += "trailer << " + end.trailer + " /Size " + std::to_string(offsets.size()) + " >>\nstartxref\n" +
             std::to_string(end.objects.end()) + "\n%%EOF\n";
    write(header());
    body_.write(write);
    end.objects.write(write);
    write(table);
}

void SplicedDocument::write_linearised(const Body::Write& write) const {
    if (pages_.empty()) return this->write(write);
    const End end = this->end();
    Whole whole{.trailer = end.trailer, .catalogue = catalogue_, .outlines = end.outlines, .pages = pages_};
    body_.list(whole.objects);
    end.objects.list(whole.objects);
    for (Body::Object& object : whole.objects)
        if (object.text.ends_with(" obj\nnull\nendobj\n")) object = {};
    const std::string beginning = header();
    LinearisedFile(beginning, whole).write(write);
}

}  // namespace foliant::hosts::acrobat::splice
