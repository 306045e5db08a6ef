#include "platform/base/object/RuntimeClass.h"

#include "platform/base/object/DumpContext.h"
#include "platform/base/object/Object.h"

#include <gtest/gtest.h>

#include <memory>

namespace utility
{

namespace
{

class CPart : public CObject
{
    DECLARE_DYNAMIC(CPart)
};

class CResistor : public CPart
{
    DECLARE_DYNCREATE(CResistor)
};

IMPLEMENT_DYNAMIC(CPart, CObject)
IMPLEMENT_DYNCREATE(CResistor, CPart)

constexpr const CRuntimeClass* CLASSES[] = {RUNTIME_CLASS(CPart), RUNTIME_CLASS(CResistor)};

class CTextDump : public CDumpContext
{
public:
    void OutputString(const CString& text) override { m_Text += text; }

    CString m_Text;
};

} // namespace

TEST(RuntimeClassTest, ObjectsKnowTheirClassAndItsBases)
{
    const std::unique_ptr<CObject> object(RUNTIME_CLASS(CResistor)->CreateObject());

    ASSERT_NE(object, nullptr);
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CResistor));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CPart)));
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CPart)->IsDerivedFrom(RUNTIME_CLASS(CResistor)));
    EXPECT_EQ(RUNTIME_CLASS(CPart)->CreateObject(), nullptr);
}

TEST(RuntimeClassTest, ClassesOfAnAddedTableAreFoundByName)
{
    EXPECT_EQ(CRuntimeClass::FromName("CResistor"), nullptr);

    CRuntimeClass::AddTable(CLASSES);

    EXPECT_EQ(CRuntimeClass::FromName("CResistor"), RUNTIME_CLASS(CResistor));
    EXPECT_EQ(CRuntimeClass::FromName("cresistor"), nullptr);
}

TEST(RuntimeClassTest, DumpShowsValuesAndObjectsInOrder)
{
    CTextDump dump;
    const CObject* none = nullptr;
    const CResistor resistor;

    dump << u"n=" << -3 << " " << 0.5 << u" " << none << u" " << resistor;

    EXPECT_EQ(dump.m_Text.Find(u"n=-3 0.5 NULL a CResistor at "), 0);
}

} // namespace utility
