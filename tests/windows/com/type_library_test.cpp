#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "windows/com/component.h"
#include "windows/com/library_text.h"

namespace foliant::com {
namespace {

/// Clients have all of this compiled in. FOLIANT_WRITE_GOLDEN names a file to which the present text is
/// written.
TEST(TypeLibrary, IsTheFrozenInterface) {
    ComPointer<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(Component::path().c_str(), REGKIND_NONE, library.put()), S_OK);
    const std::string text = library_text(*library.get());
    if (const char* path = std::getenv("FOLIANT_WRITE_GOLDEN")) std::ofstream(path, std::ios::binary) << text;
    std::ifstream file(GOLDEN_FOLDER "/type_library.golden.txt", std::ios::binary);
    std::ostringstream golden;
    golden << file.rdbuf();
    EXPECT_EQ(text, golden.str());
}

TEST(TypeLibrary, IsWhatTheObjectSaysOfItself) {
    const Component component;
    const auto object = component.create();
    UINT count = 0;
    EXPECT_EQ(object->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1U);
    ComPointer<ITypeInfo> type;
    ASSERT_EQ(object->GetTypeInfo(0, 0x409, type.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_DISPATCH);
    type->ReleaseTypeAttr(attributes);
    EXPECT_EQ(object->GetTypeInfo(1, 0x409, type.put()), DISP_E_BADINDEX);
}

}  // namespace
}  // namespace foliant::com
