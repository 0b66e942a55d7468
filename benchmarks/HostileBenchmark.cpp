// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "benchmarks/Benchmarks.h"
#include "benchmarks/Figures.h"
#include "layout/drawing/CLayoutPicture.h"

#include <QImage>
#include <QPainter>

#include <functional>

namespace {

using Cabinet = CabinetLayout::CabinetPort::Cabinet;

constexpr int HostileRepetitions = 3;
constexpr int Columns = 200;
constexpr int Rows = 100;
constexpr QSize HostilePicture(1920, 960);

/// A valid layout on one port, which no editor would make.
LayoutData layoutOf(const std::function<QRect(int column, int row)> &place, int receivers = 1)
{
    CabinetLayout::CabinetPort port;
    port.groups.resize(1);
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            Cabinet cabinet;
            cabinet.rect = place(column, row);
            cabinet.rank = row * Columns + column;
            for (int i = 0; i < receivers; ++i)
                cabinet.rects << QRect(i, 0, 1, cabinet.rect.height());
            port.groups[0].cabinets << cabinet;
        }
    }
    LayoutData data;
    data.processor = QUuid::createUuid();
    data.layout.ports << port;
    data.canvas = data.layout.boundingRect().size();
    return data;
}

SWork pictureOf(const LayoutData &data)
{
    return {{},
            [data] {
                QImage image(HostilePicture, QImage::Format_RGB32);
                QPainter painter(&image);
                CLayoutPicture::paint(painter, data, QRectF(image.rect()));
            },
            {}};
}

} // namespace

void Benchmarks::measureHostile()
{
    const SWork usual =
        pictureOf(layoutOf([](int column, int row) { return QRect(64 * column, 64 * row, 64, 64); }));
    const auto measure = [&usual](const char *name, const LayoutData &data) {
        const SMedians medians = Figures::compare(HostileRepetitions, pictureOf(data), usual);
        Figures::print(
            {name, Columns * Rows, medians.work, "a picture of a wall of as many", medians.reference});
    };
    measure("hostile picture, cabinets of one pixel",
            layoutOf([](int column, int row) { return QRect(column, row, 1, 1); }));
    measure("hostile picture, all in one place", layoutOf([](int, int) { return QRect(0, 0, 64, 64); }));
    measure("hostile picture, each in the next", layoutOf([](int column, int row) {
                const int side = 1 + (row * Columns + column) / 10;
                return QRect(0, 0, side, side);
            }));
    measure("hostile picture, 64 receivers in each",
            layoutOf([](int column, int row) { return QRect(64 * column, 64 * row, 64, 64); }, 64));
}
