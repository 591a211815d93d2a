#include "hosts/acrobat/splice/spliced_document.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include "hosts/acrobat/splice/linearised_file.h"
#include "posix/random.h"

namespace foliant::hosts::acrobat::splice {

using glance::entry;
using glance::Kind;
using glance::require;
using glance::Value;

namespace {

constexpr std::string_view behind_version = "\n%\xE2\xE3\xCF\xD3\n";
constexpr std::size_t header_size = 8 + behind_version.size();

/// What makes a file another one than those that are like it, as hexadecimal digits.
std::string new_identifier() {
    std::string digits = "<";
    for (int i = 0; i < 4; ++i) {
        char piece[16];
        std::snprintf(piece, sizeof piece, "%08x", posix::random_number());
        digits += piece;
    }
    return digits + ">";
}

/// What pages bring with them that takes the engine.
void require_only_pages(PlainDocument& source) {
    const Value catalogue = source.catalogue();
    for (const char* key : {"/AcroForm", "/StructTreeRoot", "/OCProperties", "/Extensions", "/Perms"})
        require(entry(catalogue, key).kind == Kind::null);
    const Value names = source.file().resolved(entry(catalogue, "/Names"));
    require(names.kind == Kind::null || entry(names, "/EmbeddedFiles").kind == Kind::null);
}

}  // namespace

SplicedDocument::SplicedDocument()
    : body_(header_size),
      catalogue_(body_.new_number()),
      pages_(body_.new_number()),
      information_(Information::of_new_document()) {}

SplicedDocument::SplicedDocument(PlainDocument& first)
    : body_(header_size), catalogue_(body_.new_number()), pages_(body_.new_number()) {
    Copier copier(first.file(), body_, Copier::Tags::kept);
    const Value catalogue = first.catalogue();
    // The signatures in a form are broken, which has to be told.
    for (const char* key : {"/AcroForm", "/Perms"})
        require(entry(catalogue, key).kind == Kind::null);
    copier.stand_in(entry(first.file().trailer(), "/Root"), catalogue_);
    copier.stand_in(entry(catalogue, "/Pages"), pages_.root());
    reserve_pages(first, copier);
    copy_pages(first, copier, Copier::Tags::kept);
    outline_.append(first, copier, body_, pages_, Outline::Places::any);
    take_catalogue(first, copier);
    take_trailer(first, copier);
    copier.finish();
    version_ = first.version();
    owners_.push_back(first.bytes().owner);
}

void SplicedDocument::take_catalogue(PlainDocument& first, Copier& copier) {
    const Value catalogue = first.catalogue();
    catalogue_entries_.clear();
    copier.copy_entries(catalogue, {"/Pages", "/Outlines", "/Metadata", "/Names", "/PageLabels"},
                        catalogue_entries_);
    destinations_.begin_with(first, copier);
    labels_ = PageLabels::of(first, copier);
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
    require_only_pages(source);
    const int version = source.version();
    const Body::Mark before = body_.mark();
    const std::size_t pages = pages_.size();
    const std::size_t bookmarks = outline_.size();
    try {
        add_all(source, with_bookmarks);
    } catch (...) {
        body_.return_to(before);
        pages_.shrink_to(pages);
        outline_.shrink_to(bookmarks);
        throw;
    }
    version_ = std::max(version_, version);
    ++appended_;
}

void SplicedDocument::add_all(PlainDocument& source, bool with_bookmarks) {
    const std::size_t before = pages_.size();
    Copier copier(source.file(), body_, Copier::Tags::dropped);
    reserve_pages(source, copier);
    std::vector<Destinations::Coming> places = destinations_.prepare(source, copier, appended_ + 2);
    copy_pages(source, copier, Copier::Tags::dropped);
    copier.finish();
    Destinations::copy(places, copier);
    if (with_bookmarks) outline_.append(source, copier, body_, pages_, Outline::Places::pages);
    const PageLabels labels = PageLabels::of(source, copier);
    copier.finish();
    owners_.push_back(source.bytes().owner);
    destinations_.add(std::move(places));
    labels_.append(labels, before, pages_.size() - before);
}

/// Numbers for the pages, which references to them then are to.
void SplicedDocument::reserve_pages(PlainDocument& source, Copier& copier) {
    for (const PlainPage& page : source.pages()) {
        pages_.add_page(body_);
        copier.stand_in(page.reference, pages_[pages_.size() - 1]);
    }
}

void SplicedDocument::copy_pages(PlainDocument& source, Copier& copier, Copier::Tags tags) {
    const std::vector<PlainPage>& pages = source.pages();
    const std::size_t first = pages_.size() - pages.size();
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
        target += "/Parent " + reference(pages_.parent_of(first + i)) + " >>";
        body_.end_object();
    }
}

/// Returns the number of what the bookmarks hang from; 0 for none.
std::int32_t SplicedDocument::write_catalogue(Body& tail, const std::string& packet) const {
    std::string catalogue = "<< " + catalogue_entries_ + "/Pages " + reference(pages_.root()) + " ";
    const std::int32_t outlines = outline_.write(tail);
    if (outlines != 0) catalogue += "/Outlines " + reference(outlines) + " ";
    catalogue += destinations_.write(tail) + labels_.write(tail);
    const std::int32_t metadata = tail.new_number();
    tail.put_object(metadata, "<< /Type /Metadata /Subtype /XML /Length " + std::to_string(packet.size()) +
                                  " >>\nstream\n" + packet + "\nendstream");
    tail.put_object(catalogue_, catalogue + "/Metadata " + reference(metadata) + " >>");
    return outlines;
}

std::string SplicedDocument::header() const {
    return "%PDF-" + std::to_string(version_ / 10) + "." + std::to_string(version_ % 10) +
           std::string(behind_version);
}

SplicedDocument::End SplicedDocument::end() const {
    End end{Body(body_.end(), body_.offsets()), 0, trailer_entries_};
    const Information::Written said = information_.written();
    pages_.write(end.objects);
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
    if (pages_.size() == 0) return this->write(write);
    const End end = this->end();
    Whole whole{
        .trailer = end.trailer, .catalogue = catalogue_, .outlines = end.outlines, .pages = pages_.pages()};
    body_.list(whole.objects);
    end.objects.list(whole.objects);
    for (Body::Object& object : whole.objects)
        if (object.text.ends_with(" obj\nnull\nendobj\n")) object = {};
    const std::string beginning = header();
    LinearisedFile(beginning, whole).write(write);
}

}  // namespace foliant::hosts::acrobat::splice
