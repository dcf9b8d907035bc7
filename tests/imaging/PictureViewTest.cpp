#include "imaging/PictureView.h"

#include <gtest/gtest.h>

using imaging::PictureView;

namespace {

PictureView View(QSize picture, QSizeF area)
{
    PictureView view;
    view.SetPicture(picture);
    view.SetArea(area);
    return view;
}

} // namespace

TEST(PictureView, ShowsThePictureAtItsOwnSizeInTheTopLeftCorner)
{
    const PictureView view = View({ 100, 50 }, { 300, 300 });
    EXPECT_EQ(view.Source(), QRectF(0, 0, 100, 50));
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 100, 50));
    EXPECT_EQ(view.Clip(), QRectF(0, 0, 300, 300));
}

TEST(PictureView, ZoomsInPercentIntoTheMiddle)
{
    PictureView view = View({ 100, 50 }, { 300, 300 });
    view.SetZoomed(true);
    view.SetZoomFactor(50);
    EXPECT_EQ(view.Destination(), QRectF(125, 137, 50, 25));
}

TEST(PictureView, ZoomHasALowerAndAnUpperBound)
{
    PictureView view = View({ 100, 50 }, { 300, 300 });
    view.SetZoomFactor(9);
    EXPECT_EQ(view.ZoomFactor(), 10);
    view.SetZoomFactor(-100);
    EXPECT_EQ(view.ZoomFactor(), 10);
    view.SetZoomFactor(20000);
    EXPECT_EQ(view.ZoomFactor(), 10000);
}

TEST(PictureView, ASmallPictureNeverVanishes)
{
    PictureView view = View({ 2, 2 }, { 300, 300 });
    view.SetZoomed(true);
    view.SetZoomFactor(10);
    EXPECT_EQ(view.Destination().size(), QSizeF(1, 1));
}

TEST(PictureView, ScrollsNoFurtherThanThePictureReaches)
{
    PictureView view = View({ 400, 100 }, { 300, 300 });
    EXPECT_EQ(view.Overhang(), QSizeF(100, 0));
    view.ScrollTo({ 1000, 1000 });
    EXPECT_EQ(view.Destination(), QRectF(-100, 0, 400, 100));
    view.ScrollTo({ -5, 0 });
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 400, 100));
}

TEST(PictureView, WhatStandsInTheMiddleStaysThereWhenZoomed)
{
    PictureView view = View({ 1000, 1000 }, { 200, 200 });
    view.SetZoomed(true);
    view.ScrollTo({ 300, 500 }); // the middle shows the pixel 400, 600
    view.SetZoomFactor(200);
    EXPECT_EQ(view.Offset(), QPointF(700, 1100));
}

TEST(PictureView, MapsASourceToADestinationAndDoesNotScroll)
{
    PictureView view = View({ 1000, 500 }, { 200, 200 });
    view.SetDestination({ 0, 0, 200, 200 });
    EXPECT_EQ(view.Source(), QRectF(0, 0, 1000, 500));
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 200, 200));
    EXPECT_EQ(view.Overhang(), QSizeF(0, 0));
    view.SetSource({ 10, 10, 50, 50 });
    EXPECT_EQ(view.Source(), QRectF(10, 10, 50, 50));
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 200, 200));
}

TEST(PictureView, ClipsLimitWhatIsDrawn)
{
    PictureView view = View({ 100, 100 }, { 300, 300 });
    view.SetDestination({ 0, 0, 200, 200 });
    view.SetDestinationClip({ 0, 0, 150, 500 });
    EXPECT_EQ(view.Clip(), QRectF(0, 0, 150, 300));
    view.SetSourceClip({ 50, 50, 10, 10 });
    EXPECT_EQ(view.Clip(), QRectF(100, 100, 20, 20));
}

TEST(PictureView, RectanglesEndZoomingAndZoomingEndsRectangles)
{
    PictureView view = View({ 100, 100 }, { 300, 300 });
    view.SetZoomed(true);
    view.SetDestination({ 0, 0, 30, 30 });
    EXPECT_FALSE(view.IsZoomed());
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 30, 30));
    view.SetZoomed(true);
    EXPECT_EQ(view.Destination(), QRectF(100, 100, 100, 100));
}

TEST(PictureView, AnotherPictureDropsTheRectanglesAndKeepsTheZoom)
{
    PictureView view = View({ 100, 100 }, { 300, 300 });
    view.SetDestination({ 0, 0, 30, 30 });
    view.SetPicture({ 50, 60 });
    EXPECT_EQ(view.Destination(), QRectF(0, 0, 50, 60));
    view.SetZoomed(true);
    view.SetZoomFactor(200);
    view.SetPicture({ 50, 50 });
    EXPECT_EQ(view.Destination(), QRectF(100, 100, 100, 100));
}

TEST(PictureView, APictureOfTheSameSizeStaysScrolled)
{
    PictureView view = View({ 400, 400 }, { 300, 300 });
    view.ScrollTo({ 50, 60 });
    view.SetPicture({ 400, 400 });
    EXPECT_EQ(view.Offset(), QPointF(50, 60));
    view.SetPicture({ 500, 500 });
    EXPECT_EQ(view.Offset(), QPointF(0, 0));
}
