#include "hosts/catalogue.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

#include "automation/text.h"

namespace foliant::hosts {
namespace {

TEST(Catalogue, FindsAClassByProgIdInAnyCaseAndGivesItsOfficialSpelling) {
    const HostClass found = find_class("word.APPLICATION");
    ASSERT_NE(found.host, nullptr);
    EXPECT_EQ(found.host->name, "Word");
    EXPECT_EQ(found.name, "Word.Application");
}

TEST(Catalogue, FindsBothDistillerClassesByIdentifier) {
    for (const char* identifier :
         {"{1cd675b2-ecd1-11d1-b976-00600802db86}", "{FC403250-51F5-4E1B-AC8C-ED9C5E551B9B}"}) {
        const HostClass found = find_class(identifier);
        ASSERT_NE(found.host, nullptr) << identifier;
        EXPECT_EQ(found.host->name, "Acrobat Distiller");
    }
}

TEST(Catalogue, KnowsNoOtherClasses) {
    EXPECT_EQ(find_class("").host, nullptr);
    EXPECT_EQ(find_class("Word.Document").host, nullptr);
    EXPECT_EQ(find_class("Word.Applicatio").host, nullptr);
}

TEST(Catalogue, GivesEveryClassToOneHost) {
    std::set<std::string> seen;
    for (const Host& host : catalogue()) {
        for (const std::string_view name : host.classes)
            EXPECT_TRUE(seen.insert(automation::to_lower(name)).second) << name;
    }
}

TEST(Catalogue, NamesAnEngineAndAPackageForEveryHostThatHasAModule) {
    for (const Host& host : catalogue()) {
        if (host.module.empty()) continue;
        EXPECT_FALSE(host.engine.empty()) << host.name;
        EXPECT_FALSE(host.package.empty()) << host.name;
    }
}

}  // namespace
}  // namespace foliant::hosts
