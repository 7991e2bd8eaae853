// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What a view paints.
#include "AppFixture.h"

using namespace vistrel;

namespace {

QColor paintedAt(ImageView& view, const QPoint& point)
{
    return view.grab().toImage().pixelColor(point);
}

/// What is painted where there is no picture.
QColor background(const ImageView& view)
{
    return QColor(view.palette().color(QPalette::Dark).rgb());
}

void fill16(CxImageData& image, quint16 value)
{
    SxPicBuf& buffer = *image.picBuf();
    for (unsigned y = 0; y < buffer.height; ++y) {
        for (unsigned x = 0; x < buffer.width; ++x)
            std::memcpy(buffer.data + std::size_t{y} * buffer.stride + sizeof value * x, &value,
                        sizeof value);
    }
}

} // namespace

TEST(DisplayedView, FitsThePictureAndKeepsItsAspect)
{
    ImageView view(0, QStringLiteral("view"));
    view.resize(200, 200);
    view.setImage(makeImage(100, 50, 200));
    EXPECT_EQ(paintedAt(view, {100, 100}), QColor(200, 200, 200));
    EXPECT_EQ(paintedAt(view, {3, 55}), QColor(200, 200, 200));
    EXPECT_EQ(paintedAt(view, {100, 40}), background(view));
    EXPECT_EQ(paintedAt(view, {100, 160}), background(view));
}

TEST(DisplayedView, ScalesDeepPicturesByTheirSignificantBits)
{
    ImageView view(0, QStringLiteral("view"));
    view.resize(20, 20);
    for (const auto& [value, grey] :
         {std::pair(4095, 255), std::pair(2048, 128), std::pair(0, 0)}) {
        auto image = makeImage(20, 20, 0, ExImageDataType::UInt16, 12);
        fill16(*image, static_cast<quint16>(value));
        view.setImage(std::move(image));
        EXPECT_NEAR(paintedAt(view, {10, 10}).red(), grey, 1) << value;
    }
}

TEST(DisplayedView, FollowsAnotherImage)
{
    ImageView view(0, QStringLiteral("view"));
    view.resize(20, 20);
    view.setImage(makeImage(20, 20, 10));
    EXPECT_EQ(paintedAt(view, {10, 10}), QColor(10, 10, 10));
    view.setImage(makeImage(20, 20, 90));
    EXPECT_EQ(paintedAt(view, {10, 10}), QColor(90, 90, 90));
    view.setImage(nullptr);
    EXPECT_EQ(paintedAt(view, {10, 10}), background(view));
}

TEST(DisplayedView, ShowsNothingForAnImageWithoutPixels)
{
    ImageView view(0, QStringLiteral("view"));
    view.resize(20, 20);
    view.setImage(std::make_unique<CxImageData>());
    EXPECT_EQ(paintedAt(view, {10, 10}), background(view));
}
