// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The look-up of attribute names.
#include "PythonTest.h"

#include "FuncImage/AttributeIndex.h"

using python::PyRef;

/// Outlives the interpreter, as in the plugin. Visible outside, or the store would be left out and
/// the leak check would miss it.
extern AttributeIndex* g_keptIndex;
AttributeIndex* g_keptIndex = nullptr;

namespace {

class AttributeIndexes : public PythonTest {
protected:
    AttributeIndex& index = *(g_keptIndex = new AttributeIndex);

    int find(const char* name) { return index.find(PyRef::take(PyUnicode_FromString(name)).get()); }
    int findInterned(const char* name)
    {
        return index.find(PyRef::take(PyUnicode_InternFromString(name)).get());
    }
};

TEST_F(AttributeIndexes, FindsInternedAndOtherTexts)
{
    ASSERT_TRUE(index.add("width", 0));
    ASSERT_TRUE(index.add("height", 1));
    EXPECT_EQ(findInterned("width"), 0);
    EXPECT_EQ(findInterned("height"), 1);
    EXPECT_EQ(find("height"), 1);
}

TEST_F(AttributeIndexes, KnowsNothingElse)
{
    ASSERT_TRUE(index.add("width", 0));
    ASSERT_TRUE(index.add("alloc", AttributeIndex::none));
    EXPECT_EQ(findInterned("Width"), AttributeIndex::none);
    EXPECT_EQ(find("widt"), AttributeIndex::none);
    EXPECT_EQ(findInterned("alloc"), AttributeIndex::none);
    EXPECT_EQ(index.find(Py_None), AttributeIndex::none);
    EXPECT_EQ(PyErr_Occurred(), nullptr);
}

TEST_F(AttributeIndexes, HoldsManyNames)
{
    for (int number = 0; number < 150; ++number)
        ASSERT_TRUE(index.add(("name" + QByteArray::number(number)).constData(), number));
    for (int number = 0; number < 150; ++number)
        EXPECT_EQ(findInterned(("name" + QByteArray::number(number)).constData()), number);
}

} // namespace
