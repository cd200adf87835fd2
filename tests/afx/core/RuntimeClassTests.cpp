// Run-time class information.
#include "Thrown.h"

#include <afxcoll.h>

namespace
{

int created = 0;

} // namespace

class CTestShape : public CObject
{
    DECLARE_DYNAMIC(CTestShape)
};
IMPLEMENT_DYNAMIC(CTestShape, CObject)

class CTestCircle : public CTestShape
{
    DECLARE_DYNCREATE(CTestCircle)

public:
    CTestCircle() { ++created; }
    int m_radius = 5;
};
IMPLEMENT_DYNCREATE(CTestCircle, CTestShape)

class CTestUnlucky : public CObject
{
    DECLARE_DYNCREATE(CTestUnlucky)

public:
    CTestUnlucky() { AfxThrowMemoryException(); }
};
IMPLEMENT_DYNCREATE(CTestUnlucky, CObject)

TEST(RuntimeClass, TellsNameSizeAndBase)
{
    const CRuntimeClass* circle = RUNTIME_CLASS(CTestCircle);
    EXPECT_STREQ("CTestCircle", circle->m_lpszClassName);
    EXPECT_EQ(int(sizeof(CTestCircle)), circle->m_nObjectSize);
    EXPECT_EQ(0xFFFFu, circle->m_wSchema);
    EXPECT_EQ(RUNTIME_CLASS(CTestShape), circle->m_pfnGetBaseClass());
    EXPECT_TRUE(circle->m_pfnCreateObject != NULL);
    EXPECT_TRUE(RUNTIME_CLASS(CTestShape)->m_pfnCreateObject == NULL);
    EXPECT_TRUE(RUNTIME_CLASS(CObject)->m_pfnGetBaseClass == NULL);
}

TEST(RuntimeClass, IsKindOfFollowsTheBases)
{
    const CTestCircle circle;
    const CTestShape shape;
    EXPECT_EQ(RUNTIME_CLASS(CTestCircle), circle.GetRuntimeClass());
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CTestCircle)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CTestShape)));
    EXPECT_TRUE(circle.IsKindOf(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(shape.IsKindOf(RUNTIME_CLASS(CTestCircle)));
    EXPECT_FALSE(circle.IsKindOf(RUNTIME_CLASS(CPtrList)));
    EXPECT_FALSE(circle.IsKindOf(NULL));
    EXPECT_TRUE(RUNTIME_CLASS(CTestCircle)->IsDerivedFrom(RUNTIME_CLASS(CTestShape)));
    EXPECT_FALSE(RUNTIME_CLASS(CTestShape)->IsDerivedFrom(RUNTIME_CLASS(CTestCircle)));
}

TEST(RuntimeClass, DynamicDowncastTellsByNull)
{
    CTestCircle circle;
    CObject* object = &circle;
    EXPECT_EQ(&circle, DYNAMIC_DOWNCAST(CTestCircle, object));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CPtrList, object));
    EXPECT_EQ(nullptr, DYNAMIC_DOWNCAST(CTestCircle, static_cast<CObject*>(NULL)));
}

TEST(RuntimeClass, IsFoundByExactName)
{
    EXPECT_EQ(RUNTIME_CLASS(CTestCircle), CRuntimeClass::FromName("CTestCircle"));
    EXPECT_EQ(RUNTIME_CLASS(CTestShape), CRuntimeClass::FromName(L"CTestShape"));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("ctestcircle"));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName("CTest"));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName(static_cast<const char*>(NULL)));
    EXPECT_EQ(nullptr, CRuntimeClass::FromName(static_cast<const wchar_t*>(NULL)));
}

TEST(RuntimeClass, OfTheFrameworkIsFoundThroughTheChain)
{
    EXPECT_EQ(RUNTIME_CLASS(CPtrList), CRuntimeClass::FromName("CPtrList"));
    EXPECT_EQ(RUNTIME_CLASS(CObject), CRuntimeClass::FromName("CObject"));
}

TEST(RuntimeClass, CreatesObjects)
{
    created = 0;
    CObject* object = RUNTIME_CLASS(CTestCircle)->CreateObject();
    ASSERT_TRUE(object != NULL);
    EXPECT_EQ(RUNTIME_CLASS(CTestCircle), object->GetRuntimeClass());
    EXPECT_EQ(5, static_cast<CTestCircle*>(object)->m_radius);
    delete object;
    delete CRuntimeClass::CreateObject("CTestCircle");
    delete CRuntimeClass::CreateObject(L"CTestCircle");
    EXPECT_EQ(3, created);
}

TEST(RuntimeClass, GivesNullForWhatItCannotCreate)
{
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CTestShape)->CreateObject());
    EXPECT_EQ(nullptr, CRuntimeClass::CreateObject("CNoSuchClass"));
    EXPECT_EQ(nullptr, RUNTIME_CLASS(CTestUnlucky)->CreateObject());
}
