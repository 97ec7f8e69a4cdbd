// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

#include "Hx/Transform.h"

namespace {

using Hx::Object;
using Hx::Transform;
using Matrix = Tq_1_1::Mat4d<double>;
using Tq_1_1::SmartPtr;

template <typename T>
SmartPtr<T> makeNode() {
    SmartPtr<T> node(new T);
    node->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    return node;
}

SmartPtr<Transform> makeNode(const Matrix& matrix) {
    auto node = makeNode<Transform>();
    EXPECT_TRUE(node->setMatrix(matrix));
    return node;
}

/// A quarter turn about z, twice as large, moved by the offset.
Matrix turned(double x, double y, double z) {
    return {{0, 2, 0, 0, -2, 0, 0, 0, 0, 0, 2, 0, x, y, z, 1}};
}

TEST(CalcTrafoTo, GoesUpToTheWorldAndDownToTheTarget) {
    const auto root = makeNode(Matrix::translation({100, 0, 0}));
    const auto plain = makeNode<Object>();
    const auto a = makeNode(turned(1, 2, 3));
    const auto b = makeNode(turned(0, 10, 0));
    const auto elsewhere = makeNode(Matrix::translation({0, 0, 50}));
    ASSERT_TRUE(root->addChild(plain));
    ASSERT_TRUE(plain->addChild(a));
    ASSERT_TRUE(root->addChild(b));
    struct Case {
        const char* name;
        const Object* from;
        const Object* to;
        std::array<double, 3> point;  // where (1, 0, 5) of the one comes to in the other
    };
    for (const Case& c : {
             Case{"world", a.get(), nullptr, {101, 4, 13}},
             Case{"itself", a.get(), a.get(), {1, 0, 5}},
             Case{"its parent", a.get(), plain.get(), {1, 4, 13}},
             Case{"down", root.get(), b.get(), {-5, -0.5, 2.5}},
             Case{"a cousin", a.get(), b.get(), {-3, -0.5, 6.5}},
             Case{"another tree", a.get(), elsewhere.get(), {101, 4, -37}},
         }) {
        const auto moved = c.from->calcTrafoTo(c.to).transform({1, 0, 5});
        EXPECT_EQ((std::array{moved.x, moved.y, moved.z}), c.point) << c.name;
    }
}

TEST(Object, HasOneParentAndIsNotBelowItself) {
    const auto root = makeNode<Object>();
    const auto child = makeNode<Object>();
    const auto other = makeNode<Object>();
    ASSERT_TRUE(root->addChild(child));
    EXPECT_FALSE(other->addChild(child)) << "has a parent";
    EXPECT_EQ(child->getParent(), root.get());
    EXPECT_FALSE(child->addChild(root)) << "above";
    EXPECT_FALSE(root->addChild(root)) << "itself";
    EXPECT_FALSE(root->addChild({}));
}

TEST(CalcTrafoTo, NeighboursFarFromTheOriginLoseNoDigits) {
    const auto root = makeNode(Matrix::translation({1e17, -1e17, 0}));
    const auto a = makeNode(Matrix::translation({0.25, 0, 0}));
    const auto b = makeNode(Matrix::translation({0, 0.125, 0}));
    ASSERT_TRUE(root->addChild(a));
    ASSERT_TRUE(root->addChild(b));
    EXPECT_EQ(a->calcTrafoTo(b.get()), Matrix::translation({0.25, -0.125, 0}));
}

TEST(Transform, RefusesWhatCannotBeUndone) {
    const auto node = makeNode(turned(1, 2, 3));
    const auto with = [](std::size_t index, double value) {
        Matrix m = Matrix::identity();
        m.values[index] = value;
        return m;
    };
    struct Case {
        const char* name;
        Matrix matrix;
    };
    for (const Case& c : {
             Case{"not a number", with(12, std::numeric_limits<double>::quiet_NaN())},
             Case{"infinite", with(0, std::numeric_limits<double>::infinity())},
             Case{"bottom row, z", with(11, 1)},
             Case{"flat", with(10, 0)},
             Case{"no finite inverse", with(5, 1e-320)},
         }) {
        EXPECT_FALSE(node->setMatrix(c.matrix)) << c.name;
    }
    EXPECT_EQ(node->getMatrix(), turned(1, 2, 3));
    EXPECT_EQ(node->getInverseMatrix() * node->getMatrix(), Matrix::identity());
}

}  // namespace
