// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "layout/printing/dialog/CSheetPictures.h"

#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QScrollArea;
class QSpinBox;
class QToolButton;

/// Shows one sheet of a job, and turns the pages. GUI thread.
class CSheetPreview final : public QWidget
{
    Q_OBJECT

public:
    explicit CSheetPreview(QWidget *parent = nullptr);

    /// Shows @p sheets; the page in view stays if there still is one.
    void show(const QVector<SSheet> &sheets);
    /// Shows a text in place of sheets; @p offersUsualPaper: with a button below.
    void tell(const QString &text, bool offersUsualPaper = false);
    int page() const; ///< from 0; -1: none
    /// Whether the picture of a sheet is there: turning to it shows it at once.
    bool isDrawn(int page) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void notifyUsualPaperWished();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    class CPage;

    void buildUi();
    /// Returns whether the key is one of the preview's.
    bool take(const QKeyEvent &event);
    void turn(int pages);
    void zoom(double factor);
    void updatePage();
    QSize sizeOf(int page) const;
    /// Draws the sheet in view, and those beside it ahead.
    void draw();
    QToolButton *addButton(const QString &text, const QString &tip, const std::function<void()> &clicked);

    QVector<SSheet> m_sheets;
    CSheetPictures m_pictures;
    QScrollArea *m_area = nullptr;
    CPage *m_page = nullptr;
    QPushButton *m_usualPaper = nullptr;
    QSpinBox *m_number = nullptr;
    QLabel *m_of = nullptr;
    QToolButton *m_back = nullptr;
    QToolButton *m_next = nullptr;
    double m_zoom = 1; ///< 1: the whole sheet is in view
};
