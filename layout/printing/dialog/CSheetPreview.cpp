// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetPreview.h"

#include "layout/printing/output/CSheetPainter.h"
#include "layout/printing/sheets/CSheetFont.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QSpinBox>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

constexpr int PageMargin = 12;
constexpr double MostZoom = 6;
constexpr double ZoomStep = 1.25;

} // namespace

/// The sheet itself, drawn once for each size.
class CSheetPreview::CPage final : public QWidget
{
public:
    void show(const SSheet *sheet, const QString &text)
    {
        m_sheet = sheet;
        m_text = text;
        m_picture = QPixmap();
        update();
    }
    const SSheet *sheet() const { return m_sheet; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (!m_sheet) {
            painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_text);
            return;
        }
        const QRect page = rect().adjusted(PageMargin, PageMargin, -PageMargin, -PageMargin);
        if (m_picture.size() != page.size() * devicePixelRatioF())
            draw(page.size());
        painter.drawPixmap(page.topLeft(), m_picture);
    }

private:
    void draw(const QSize &size)
    {
        m_picture = QPixmap(size * devicePixelRatioF());
        m_picture.setDevicePixelRatio(devicePixelRatioF());
        m_picture.fill(Qt::white);
        if (m_picture.isNull())
            return;
        QPainter painter(&m_picture);
        painter.setRenderHint(QPainter::Antialiasing);
        const double scale = size.width() / m_sheet->size.width() / CSheetFont::UnitsPerMillimetre;
        painter.scale(scale, scale);
        CSheetPainter::paint(painter, *m_sheet);
    }

    const SSheet *m_sheet = nullptr;
    QString m_text;
    QPixmap m_picture;
};

CSheetPreview::CSheetPreview(QWidget *parent)
    : QWidget(parent)
{
    buildUi();
    tell({});
}

void CSheetPreview::buildUi()
{
    m_page = new CPage;
    m_area = new QScrollArea;
    m_area->setWidget(m_page);
    m_area->setAlignment(Qt::AlignCenter);
    m_area->setFocusPolicy(Qt::StrongFocus);
    m_area->setAccessibleName(tr("Preview"));
    m_area->installEventFilter(this);
    m_area->viewport()->installEventFilter(this);
    m_number = new QSpinBox;
    m_number->setAccessibleName(tr("Sheet"));
    m_number->setKeyboardTracking(false);
    m_of = new QLabel;
    auto *row = new QHBoxLayout;
    m_back = addButton(QStringLiteral("‹"), tr("Previous sheet (Page up)"), [this] { turn(-1); });
    m_next = addButton(QStringLiteral("›"), tr("Next sheet (Page down)"), [this] { turn(1); });
    row->addWidget(m_back);
    row->addWidget(new QLabel(tr("Sheet")));
    row->addWidget(m_number);
    row->addWidget(m_next);
    row->addWidget(m_of, 1);
    row->addWidget(addButton(QStringLiteral("−"), tr("Zoom out (Ctrl+-)"), [this] { zoom(1 / ZoomStep); }));
    row->addWidget(addButton(tr("Fit"), tr("Show the whole sheet (Ctrl+0)"), [this] { zoom(0); }));
    row->addWidget(addButton(QStringLiteral("+"), tr("Zoom in (Ctrl++)"), [this] { zoom(ZoomStep); }));
    auto *whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(m_area, 1);
    whole->addLayout(row);
    connect(m_number, QOverload<int>::of(&QSpinBox::valueChanged), this, &CSheetPreview::updatePage);
}

QToolButton *CSheetPreview::addButton(const QString &text, const QString &tip,
                                      const std::function<void()> &clicked)
{
    auto *button = new QToolButton;
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    connect(button, &QToolButton::clicked, this, clicked);
    return button;
}

void CSheetPreview::show(const QVector<SSheet> &sheets)
{
    m_sheets = sheets;
    m_number->setRange(sheets.isEmpty() ? 0 : 1, sheets.size());
    m_of->setText(tr("of %1").arg(sheets.size()));
    updatePage();
}

void CSheetPreview::tell(const QString &text)
{
    show({});
    m_page->show(nullptr, text);
}

int CSheetPreview::page() const
{
    return m_number->value() - 1;
}

void CSheetPreview::turn(int pages)
{
    m_number->setValue(m_number->value() + pages);
}

void CSheetPreview::zoom(double factor)
{
    m_zoom = factor > 0 ? qBound(1.0, m_zoom * factor, MostZoom) : 1;
    updatePage();
}

void CSheetPreview::updatePage()
{
    const bool any = page() >= 0 && page() < m_sheets.size();
    m_back->setEnabled(page() > 0);
    m_next->setEnabled(page() + 1 < m_sheets.size());
    m_number->setEnabled(any);
    const QSize room = m_area->maximumViewportSize();
    if (!any) {
        m_page->resize(room);
        return;
    }
    const SSheet &sheet = m_sheets.at(page());
    m_of->setText(tr("of %1: %2").arg(m_sheets.size()).arg(sheet.title));
    const QSize margins(2 * PageMargin, 2 * PageMargin);
    const QSize fitting = sheet.size.scaled(room - margins, Qt::KeepAspectRatio).toSize();
    m_page->resize(fitting * m_zoom + margins);
    m_page->show(&sheet, {});
}

bool CSheetPreview::eventFilter(QObject *watched, QEvent *event)
{
    // The area would scroll before it passes keys and wheel on.
    if (event->type() == QEvent::KeyPress && watched == m_area && take(*static_cast<QKeyEvent *>(event)))
        return true;
    if (event->type() != QEvent::Wheel || watched == m_area)
        return QWidget::eventFilter(watched, event);
    auto *wheel = static_cast<QWheelEvent *>(event);
    const int delta = wheel->angleDelta().y();
    if (wheel->modifiers() & Qt::ControlModifier)
        zoom(delta > 0 ? ZoomStep : 1 / ZoomStep);
    else if (m_zoom > 1)
        return QWidget::eventFilter(watched, event); // scrolls
    else if (delta != 0)
        turn(delta > 0 ? -1 : 1);
    return true;
}

void CSheetPreview::keyPressEvent(QKeyEvent *event)
{
    if (!take(*event))
        QWidget::keyPressEvent(event);
}

bool CSheetPreview::take(const QKeyEvent &event)
{
    const bool control = event.modifiers() & Qt::ControlModifier;
    if (event.key() == Qt::Key_PageUp)
        turn(-1);
    else if (event.key() == Qt::Key_PageDown)
        turn(1);
    else if (event.key() == Qt::Key_Home && control)
        m_number->setValue(1);
    else if (event.key() == Qt::Key_End && control)
        m_number->setValue(m_sheets.size());
    else if (control && (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal))
        zoom(ZoomStep);
    else if (control && event.key() == Qt::Key_Minus)
        zoom(1 / ZoomStep);
    else if (control && event.key() == Qt::Key_0)
        zoom(0);
    else
        return false;
    return true;
}

void CSheetPreview::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updatePage();
}
