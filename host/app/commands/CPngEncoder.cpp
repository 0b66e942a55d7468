// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "host/app/commands/CPngEncoder.h"

#include <QtEndian>

#include <array>
#include <cstring>
#include <vector>

namespace {

constexpr int FastestCompression = 1; // more effort saves little
constexpr uchar FilterUp = 2;         // bytes are differences from the row above

/// The checksums of all bytes, for that of PNG's chunks.
constexpr std::array<quint32, 256> crcTable()
{
    std::array<quint32, 256> table{};
    for (quint32 byte = 0; byte < 256; ++byte) {
        quint32 crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ (crc & 1 ? 0xEDB88320u : 0);
        table[byte] = crc;
    }
    return table;
}

quint32 crcOf(const QByteArray &bytes)
{
    static constexpr std::array<quint32, 256> table = crcTable();
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : bytes)
        crc = table[(crc ^ uchar(byte)) & 0xFF] ^ (crc >> 8);
    return ~crc;
}

QByteArray bigEndian(quint32 number)
{
    number = qToBigEndian(number);
    return QByteArray(reinterpret_cast<const char *>(&number), sizeof number);
}

QByteArray chunk(const char *type, const QByteArray &content)
{
    const QByteArray typed = type + content;
    return bigEndian(quint32(content.size())) + typed + bigEndian(crcOf(typed));
}

/// Replaces the pixels by the rows of a PNG, which are shorter; returns their size in bytes.
int packRows(QImage &image)
{
    const int width = image.width();
    std::vector<QRgb> above(size_t(width), 0xFF000000u);
    std::vector<QRgb> row(above);
    uchar *packed = image.bits();
    uchar *to = packed;
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(row.data(), image.constScanLine(y), size_t(width) * sizeof(QRgb));
        *to++ = FilterUp;
        for (int x = 0; x < width; ++x) {
            const QRgb now = row[size_t(x)];
            const QRgb before = above[size_t(x)];
            *to++ = uchar(qRed(now) - qRed(before));
            *to++ = uchar(qGreen(now) - qGreen(before));
            *to++ = uchar(qBlue(now) - qBlue(before));
        }
        above.swap(row);
    }
    return int(to - packed);
}

} // namespace

QByteArray CPngEncoder::encode(QImage image)
{
    const QByteArray header = bigEndian(quint32(image.width())) + bigEndian(quint32(image.height())) +
                              QByteArray("\x08\x02\0\0\0", 5); // 8 bits of red, green and blue
    const int packed = packRows(image);
    const QByteArray content = qCompress(image.constBits(), packed, FastestCompression);
    if (content.isEmpty())
        return {};
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", header) +
           chunk("IDAT", content.mid(int(sizeof(quint32)))) + // Qt puts the size before it
           chunk("IEND", {});
}
