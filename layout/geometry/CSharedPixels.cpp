// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/geometry/CSharedPixels.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int WordShift = 6;
constexpr qint64 MostDrawn = 8 * CSharedPixels::MostWords;

/// 64 pixels of a row.
struct SWord
{
    quint64 covered = 0;
    quint64 shared = 0; ///< covered more than once
};

class CPlane final
{
public:
    explicit CPlane(const QRect &bounds)
        : m_origin(bounds.topLeft())
        , m_rowWords((bounds.width() >> WordShift) + 1)
        , m_words(size_t(m_rowWords) * size_t(bounds.height()))
    {
    }

    /// Visits the words that @p rect covers, with the pixels that it covers in them, until @p visit returns
    /// true. Returns whether it did.
    template <typename Visit>
    bool visit(const QRect &rect, Visit visit)
    {
        const int left = rect.left() - m_origin.x();
        const int right = rect.right() - m_origin.x();
        const int first = left >> WordShift;
        const int last = right >> WordShift;
        const quint64 firstMask = ~quint64(0) << (left & 63);
        const quint64 lastMask = ~quint64(0) >> (63 - (right & 63));
        for (int y = rect.top() - m_origin.y(); y <= rect.bottom() - m_origin.y(); ++y) {
            SWord *row = &m_words[size_t(y) * size_t(m_rowWords)];
            for (int i = first; i <= last; ++i) {
                const quint64 mask =
                    (i == first ? firstMask : ~quint64(0)) & (i == last ? lastMask : ~quint64(0));
                if (visit(row[i], mask))
                    return true;
            }
        }
        return false;
    }

private:
    QPoint m_origin;
    int m_rowWords;
    std::vector<SWord> m_words;
};

/// How many words of one plane hold @p rect, wherever it lies.
qint64 wordsOf(const QRect &rect)
{
    return qint64(rect.height()) * ((rect.width() >> WordShift) + 2);
}

} // namespace

QVector<bool> CSharedPixels::overlapping(const QVector<QRect> &rects)
{
    QVector<bool> found(rects.size());
    std::transform(rects.begin(), rects.end(), found.begin(), [](const QRect &r) { return !r.isEmpty(); });
    QRect bounds;
    qint64 drawn = 0;
    for (int i = 0; i < rects.size(); ++i) {
        if (found.at(i)) {
            bounds |= rects.at(i);
            drawn += wordsOf(rects.at(i));
        }
    }
    if (wordsOf(bounds) > MostWords || drawn > MostDrawn)
        return found;
    CPlane plane(bounds);
    for (int i = 0; i < rects.size(); ++i) {
        if (found.at(i))
            plane.visit(rects.at(i), [](SWord &word, quint64 mask) {
                word.shared |= word.covered & mask;
                word.covered |= mask;
                return false;
            });
    }
    for (int i = 0; i < rects.size(); ++i) {
        if (found.at(i))
            found[i] = plane.visit(rects.at(i),
                                   [](const SWord &word, quint64 mask) { return (word.shared & mask) != 0; });
    }
    return found;
}
