#include <gmock/gmock.h>
#include <qpdf/QPDFWriter.hh>

#include "hosts/acrobat/fixture.h"
#include "hosts/acrobat/rectangle.h"

namespace foliant::hosts::acrobat {
namespace {

using automation::Value;
using test::AcrobatTest;
using test::pages;
using testing::ElementsAre;
using tests::failure;
using tests::Names;

class Passwords : public AcrobatTest {
  protected:
    /// A protected file; `set` is a call of QPDFWriter's.
    template <typename Set>
    std::string protect(Set set, int count = 2) const {
        const std::string path = (folder / "protected.pdf").string();
        const auto pdf = test::read_pdf(write("open.pdf", pages(count).file()));
        QPDFWriter writer(pdf->qpdf(), path.c_str());
        set(writer);
        writer.write();
        return path;
    }
    std::string protect_with_aes_256() const {
        return protect([](QPDFWriter& writer) {
            writer.setR6EncryptionParameters("user", "owner", true, true, true, true, true, true,
                                             qpdf_r3p_full, true);
        });
    }

    Value execute(const std::string& item) const { return application.call("MenuItemExecute", {item}); }
    std::int32_t shown_pages() const {
        return *application.call("GetActiveDoc")
                    .call("GetPDDoc")
                    .call("GetNumPages")
                    .if_holds<std::int32_t>();
    }
};

TEST_F(Passwords, OfAFileThatSaysNothingOfItsKeysLengthStayAsTheyAre) {
    const std::string path = protect([](QPDFWriter& writer) {
        writer.setR3EncryptionParametersInsecure("", "owner", true, true, true, true, true, true,
                                                 qpdf_r3p_full);
    });
    std::string content = tests::read_file(path);
    content.replace(content.find("/Length 128 /O"), 11, "/Length 0  ");
    const Value document = new_document();
    document.call("Open", {write("odd.pdf", content)});
    EXPECT_THAT(test::texts(*saved(document)), ElementsAre("page 1", "page 2"));
}

class Restrictions : public Passwords {
  protected:
    /// Anybody opens it, and may assemble it, extract from it, and print it, or not.
    std::string restricted(bool assembly, bool extraction, bool printing = true) const {
        return protect([&](QPDFWriter& writer) {
            writer.setR6EncryptionParameters("", "owner", true, extraction, assembly, true, true, true,
                                             printing ? qpdf_r3p_full : qpdf_r3p_none, true);
        });
    }

    /// Inserts all of one into the other; "2 pages" or "refused" with what was told.
    std::string merge(const Value& target, const Value& source) {
        const Value inserted =
            target.call("InsertPages", {std::int32_t{-1}, source, std::int32_t{0}, std::int32_t{2}, true});
        if (inserted == Value(false)) return "refused: " + machine.failures.back();
        return std::to_string(*target.call("GetNumPages").if_holds<std::int32_t>()) + " pages";
    }
    Value opened(const std::string& path) {
        const Value document = new_document();
        document.call("Open", {path});
        return document;
    }
};

TEST_F(Restrictions, OfWhatIsProtectedAreKeptInInserting) {
    const std::string path = (folder / "protected.pdf").string();
    const auto into_new = [&] {
        const Value target = new_document();
        target.call("Create");
        return merge(target, opened(path));
    };
    const std::string refusal = ": whoever protected it allows that only with the owner's password.";
    restricted(true, true);
    EXPECT_EQ(into_new(), "2 pages");
    restricted(true, false);
    EXPECT_EQ(into_new(), "refused: The pages of " + path + " cannot be inserted" + refusal);
    restricted(false, true);
    EXPECT_EQ(into_new(), "refused: The pages of " + path + " cannot be inserted" + refusal);
    EXPECT_EQ(merge(opened(path), document_on(pages(2).file())),
              "refused: Pages cannot be inserted into protected.pdf" + refusal);
    restricted(true, false);
    EXPECT_EQ(merge(opened(path), document_on(pages(2).file())), "4 pages");
}

TEST_F(Restrictions, DoNotBindWhoKnowsTheOwnersPassword) {
    const std::string path = protect([](QPDFWriter& writer) {
        writer.setR6EncryptionParameters("user", "owner", false, false, false, false, false, false,
                                         qpdf_r3p_none, true);
    });
    for (const std::string password : {"user", "owner"}) {
        machine.answers = {path, password};
        execute("Open");
        const Value viewer = application.call("GetActiveDoc");
        const Value target = new_document();
        target.call("Create");
        EXPECT_EQ(merge(target, viewer.call("GetPDDoc")).substr(0, 7),
                  password == "owner" ? "2 pages" : "refused");
        const auto print = [&] {
            viewer.call("PrintPagesSilent", {std::int32_t{0}, std::int32_t{0}, std::int16_t{2}, true, false});
        };
        machine.printer = "Paper";
        EXPECT_EQ(failure(print),
                  password == "owner"
                      ? "no failure"
                      : "-2147467259 protected.pdf may not be printed: whoever protected it allows that only "
                        "with the owner's password. Give that to open it.");
        viewer.call("Close", {true});
    }
}

/// A document that anybody opens, and with which its owner allows some things.
class OwnersRights : public Restrictions {
  protected:
    struct Allowed {
        bool accessibility = false;
        bool extraction = false;
        bool assembly = false;
        bool changes = false;
    };

    void show(const Allowed& allowed) {
        if (viewer.holds<automation::ObjectPtr>()) viewer.call("Close", {true});
        // The kind of which all that is allowed counts; in later ones everybody may hear.
        const std::string path = protect([&](QPDFWriter& writer) {
            writer.setR3EncryptionParametersInsecure("", "owner", allowed.accessibility, allowed.extraction,
                                                     allowed.assembly, true, true, allowed.changes,
                                                     qpdf_r3p_none);
        });
        viewer = opened(path).call("OpenAVDoc", {""});
    }

    /// What becomes of a menu item; "" when it is executed.
    std::string why_not(const std::string& item) {
        const automation::Error error = tests::error_of([&] { execute(item); });
        return error.number() == 0 ? "" : error.description();
    }
    std::string why_no_text() {
        const Value document = viewer.call("GetPDDoc");
        const automation::Error error = tests::error_of([&] {
            document.call("CreateTextSelect",
                          {std::int32_t{0}, automation::ObjectPtr(std::make_shared<AcrobatRectangle>())});
        });
        return error.number() == 0 ? "" : error.description();
    }

    static std::string refusal(const std::string& what) {
        return "protected.pdf " + what + ": whoever protected it allows that only with the owner's password.";
    }
    const std::string advice = " Give that to open it.";

    Value viewer;
};

TEST_F(OwnersRights, BookmarksNeedThatOfAssemblingOrOfChanging) {
    show({.accessibility = true, .extraction = true});
    EXPECT_EQ(why_not("NewBookmark"), refusal("may get no bookmarks") + advice);
    show({.assembly = true});
    EXPECT_EQ(why_not("NewBookmark"), "");
    show({.changes = true});
    EXPECT_EQ(why_not("NewBookmark"), "");
}

TEST_F(OwnersRights, LinksNeedThatOfChanging) {
    show({.accessibility = true, .extraction = true, .assembly = true});
    EXPECT_EQ(why_not("Weblink:CreateURLs"), refusal("may get no links") + advice);
    EXPECT_EQ(machine.notes, Names{"dialog Password"});
    show({.changes = true});
    machine.answers = {"OK", "OK"};
    EXPECT_EQ(why_not("Weblink:CreateURLs"), "");
}

TEST_F(OwnersRights, TextNeedsThatOfCopying) {
    show({.accessibility = true, .assembly = true, .changes = true});
    EXPECT_EQ(why_no_text(), refusal("may not be copied from, so its text is not written") + advice);
    show({.extraction = true});
    EXPECT_EQ(why_no_text(), "");
}

TEST_F(OwnersRights, ReadingAloudNeedsThatOfAccessibility) {
    show({.assembly = true, .changes = true});
    EXPECT_EQ(why_not("ADBE:ReadAloudStart"), refusal("may not be read aloud") + advice);
    show({.accessibility = true});
    EXPECT_EQ(why_not("ADBE:ReadAloudStart"), "");
}

TEST_F(OwnersRights, SearchingNeedsNone) {
    show({});
    EXPECT_EQ(viewer.call("FindText", {"page 2", false, false, true}), Value(true));
}

TEST_F(OwnersRights, AnotherProtectionNeedsTheOwner) {
    show({.accessibility = true, .extraction = true, .assembly = true, .changes = true});
    EXPECT_EQ(why_not("SecureApplyPwdSecurity"),
              refusal("may not be given another protection") +
                  " Take its protection off with that first, as qpdf --decrypt does.");
}

TEST_F(OwnersRights, AreThoseOfWhoKnowsThePassword) {
    show({});
    machine.answers = {"another", "owner"};
    EXPECT_EQ(why_not("NewBookmark"), "");
    EXPECT_EQ(machine.notes, (Names{"dialog Password", "dialog Password"}));
    EXPECT_EQ(why_no_text(), "");
    machine.answers = {"new", "new", "OK"};
    EXPECT_EQ(why_not("SecureApplyPwdSecurity"), "");
}

TEST_F(OwnersRights, AreNotThoseOfWhoCancels) {
    show({});
    machine.answers = {"cancel"};
    EXPECT_EQ(why_not("NewBookmark"), refusal("may get no bookmarks") + advice);
}

TEST_F(Passwords, OfEveryKindAreTakenFromTheDialogs) {
    const std::vector<std::function<void(QPDFWriter&)>> kinds = {
        [](QPDFWriter& w) { w.setR2EncryptionParametersInsecure("user", "owner", true, true, true, true); },
        [](QPDFWriter& w) {
            w.setR3EncryptionParametersInsecure("user", "owner", true, true, true, true, true, true,
                                                qpdf_r3p_full);
        },
        [](QPDFWriter& w) {
            w.setR4EncryptionParametersInsecure("user", "owner", true, true, true, true, true, true,
                                                qpdf_r3p_full, true, true);
        },
        [](QPDFWriter& w) {
            w.setR6EncryptionParameters("user", "owner", true, true, true, true, true, true, qpdf_r3p_full,
                                        true);
        },
    };
    for (const auto& kind : kinds) {
        for (const char* password : {"user", "owner"}) {
            machine.answers = {protect(kind), password};
            EXPECT_EQ(execute("Open"), Value(true));
            EXPECT_EQ(shown_pages(), 2);
            application.call("Exit");
        }
    }
}

TEST_F(Passwords, ThatOnlyTheOwnerHasAreNotAskedFor) {
    const std::string path = protect([](QPDFWriter& writer) {
        writer.setR6EncryptionParameters("", "owner", true, true, true, true, true, true, qpdf_r3p_full,
                                         true);
    });
    const Value viewer = new_viewer();
    viewer.call("Open", {path, ""});
    EXPECT_EQ(viewer.call("GetPDDoc").call("GetNumPages"), Value(std::int32_t{2}));
    EXPECT_TRUE(machine.notes.empty());
}

TEST_F(Passwords, ThatAreWrongAreAskedForAgain) {
    machine.answers = {protect_with_aes_256(), "wrong", "", "user"};
    EXPECT_EQ(execute("Open"), Value(true));
    EXPECT_EQ(shown_pages(), 2);
    EXPECT_THAT(machine.notes,
                ElementsAre("dialog Open", "dialog Password", "dialog Password", "dialog Password"));
}

TEST_F(Passwords, ThatAreWrongFailTheCallWhenNobodyIsLeftToAnswer) {
    const std::string path = protect_with_aes_256();
    machine.answers = {path, "wrong"};
    EXPECT_EQ(failure([&] { execute("Open"); }),
              "-2147467259 " + path + " cannot be opened: the password is not the one that protects it.");
    EXPECT_EQ(application.call("GetActiveDoc").call("IsValid"), Value(false));
}

TEST_F(Passwords, ThatNobodyGivesAreMissed) {
    const std::string path = protect_with_aes_256();
    const std::string told =
        "-2147467259 " + path + " cannot be opened: it is protected. Give the password that opens it.";
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("Open", {path, ""}), Value(false));
    EXPECT_EQ(failure([&] { viewer.call("GetPDDoc"); }), told);
    const Value document = new_document();
    EXPECT_EQ(document.call("Open", {path}), Value(false));
    EXPECT_EQ(failure([&] { document.call("GetNumPages"); }), told);
}

TEST_F(Passwords, AFileThatIsShownIsOpenedAgainWithoutOne) {
    const std::string path = protect_with_aes_256();
    machine.answers = {path, "user"};
    execute("Open");
    const Value viewer = new_viewer();
    EXPECT_EQ(viewer.call("Open", {path, ""}), Value(true));
    EXPECT_EQ(machine.notes.size(), 2U);
}

TEST_F(Passwords, ADialogThatIsCancelledOpensNothing) {
    machine.answers = {"cancel"};
    EXPECT_EQ(execute("Open"), Value(false));
    const std::string path = protect_with_aes_256();
    machine.answers = {path, "cancel"};
    EXPECT_NE(failure([&] { execute("Open"); }), "no failure");
}

/// Acrobat's dialogs for a new password.
class SettingAPassword : public Passwords {
  protected:
    SettingAPassword() { document_on(pages(2).file()).call("OpenAVDoc", {""}); }

    std::string path = (folder / "document.pdf").string();
};

TEST_F(SettingAPassword, ProtectsTheFileWhenItIsSaved) {
    machine.answers = {"geheim ß", "geheim ß", ""};
    EXPECT_EQ(execute("SecureApplyPwdSecurity"), Value(true));
    EXPECT_THAT(machine.notes,
                ElementsAre("dialog Password Security - Settings",
                            "dialog Adobe Acrobat - Confirm Open Document Password", "dialog Adobe Acrobat"));
    EXPECT_FALSE(test::read_pdf(path)->qpdf().isEncrypted());
    EXPECT_EQ(execute("Save"), Value(true));
    int revision = 0;
    int permissions = 0;
    int version = 0;
    QPDF::encryption_method_e streams{};
    QPDF::encryption_method_e strings{};
    QPDF::encryption_method_e files{};
    const auto pdf = test::read_pdf(path, "geheim ß");
    EXPECT_TRUE(pdf->qpdf().isEncrypted(revision, permissions, version, streams, strings, files));
    EXPECT_EQ(revision, 6);
    EXPECT_EQ(streams, QPDF::e_aesv3);
    EXPECT_EQ(pdf->page_count(), 2);
    EXPECT_ANY_THROW(test::read_pdf(path, ""));
}

TEST_F(SettingAPassword, AsksAgainUntilItIsConfirmed) {
    machine.answers = {"one", "two", "one", ""};
    EXPECT_EQ(execute("SecureApplyPwdSecurity"), Value(true));
    EXPECT_EQ(machine.notes.size(), 4U);
}

TEST_F(SettingAPassword, RefusesAnEmptyOne) {
    machine.answers = {""};
    EXPECT_EQ(failure([&] { execute("SecureApplyPwdSecurity"); }),
              "-2147467259 " + path + " cannot be protected: an empty password protects nothing. Give one.");
}

TEST_F(SettingAPassword, TakesAsManyBytesAsAPdfDoes) {
    const std::string longest = std::string(125, 'q') + "ß";
    machine.answers = {longest, longest, ""};
    EXPECT_EQ(execute("SecureApplyPwdSecurity"), Value(true));
    execute("Save");
    EXPECT_EQ(test::read_pdf(path, longest)->page_count(), 2);
}

TEST_F(SettingAPassword, RefusesOneOfMoreBytesAndDoesNotRepeatIt) {
    machine.answers = {std::string(126, 'q') + "ß"};
    EXPECT_EQ(failure([&] { execute("SecureApplyPwdSecurity"); }),
              "-2147467259 " + path +
                  " cannot be protected: the password has 128 bytes in UTF-8, and a PDF takes at most 127. "
                  "Give a shorter one.");
    execute("Save");
    EXPECT_FALSE(test::read_pdf(path)->qpdf().isEncrypted());
}

TEST_F(SettingAPassword, ChangesNothingWhenADialogIsCancelledOrNotAnswered) {
    machine.answers = {"cancel"};
    EXPECT_EQ(execute("SecureApplyPwdSecurity"), Value(false));
    machine.answers = {"one", "cancel"};
    EXPECT_EQ(execute("SecureApplyPwdSecurity"), Value(false));
    machine.answers = {"one", "one"};
    EXPECT_EQ(failure([&] { execute("SecureApplyPwdSecurity"); }), "445 Nobody is there.");
    execute("Save");
    EXPECT_FALSE(test::read_pdf(path)->qpdf().isEncrypted());
}

TEST_F(SettingAPassword, ADocumentKeepsTheProtectionThatItHas) {
    const std::string protected_path = protect_with_aes_256();
    machine.answers = {protected_path, "user"};
    execute("Open");
    execute("Save");
    EXPECT_ANY_THROW(test::read_pdf(protected_path, ""));
    EXPECT_EQ(test::read_pdf(protected_path, "owner")->page_count(), 2);
}

}  // namespace
}  // namespace foliant::hosts::acrobat
