// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/printing/dialog/CSheetPreview.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
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

/// The sheet itself, or a text in its place.
class CSheetPreview::CPage final : public QWidget
{
public:
    /// An empty sheet until there is a picture of it.
    void show(const QImage &picture)
    {
        m_isSheet = true;
        m_picture = picture;
        update();
    }
    void tell(const QString &text)
    {
        m_isSheet = false;
        m_picture = QImage();
        m_text = text;
        update();
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (!m_isSheet) {
            painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, m_text);
            return;
        }
        const QRect sheet = rect().adjusted(PageMargin, PageMargin, -PageMargin, -PageMargin);
        painter.fillRect(sheet, Qt::white);
        painter.setRenderHint(QPainter::SmoothPixmapTransform); // until it is drawn in this size
        painter.drawImage(sheet, m_picture);
    }

private:
    bool m_isSheet = false;
    QImage m_picture;
    QString m_text;
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
    m_usualPaper = new QPushButton(tr("Usual paper and scale"));
    m_usualPaper->setAutoDefault(false);
    whole->addWidget(m_usualPaper, 0, Qt::AlignHCenter);
    connect(m_usualPaper, &QPushButton::clicked, this, &CSheetPreview::notifyUsualPaperWished);
    whole->addLayout(row);
    connect(m_number, QOverload<int>::of(&QSpinBox::valueChanged), this, &CSheetPreview::updatePage);
    connect(&m_pictures, &CSheetPictures::notifyDrawn, this, [this](int sheet) {
        if (sheet != page())
            return;
        if (!m_pictures.picture(sheet).isNull()) {
            m_page->show(m_pictures.picture(sheet));
            return;
        }
        m_page->resize(m_area->maximumViewportSize()); // the text is in view
        m_page->tell(tr("There is not enough memory for the sheets."));
    });
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
    m_pictures.setSheets(sheets);
    m_number->setRange(sheets.isEmpty() ? 0 : 1, sheets.size());
    m_of->setText(tr("of %1").arg(sheets.size()));
    m_usualPaper->hide();
    updatePage();
}

void CSheetPreview::tell(const QString &text, bool offersUsualPaper)
{
    show({});
    m_usualPaper->setVisible(offersUsualPaper);
    m_page->tell(text);
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
    if (!any) {
        m_page->resize(m_area->maximumViewportSize());
        return;
    }
    m_of->setText(tr("of %1: %2").arg(m_sheets.size()).arg(m_sheets.at(page()).title));
    m_page->resize(sizeOf(page()) + QSize(2 * PageMargin, 2 * PageMargin));
    draw();
    m_page->show(m_pictures.picture(page()));
}

QSize CSheetPreview::sizeOf(int page) const
{
    const QSize room = m_area->maximumViewportSize() - QSize(2 * PageMargin, 2 * PageMargin);
    return m_sheets.at(page).size.scaled(room, Qt::KeepAspectRatio).toSize() * m_zoom;
}

void CSheetPreview::draw()
{
    QVector<CSheetPictures::SWish> wishes;
    for (const int sheet : {page(), page() + 1, page() - 1, page() + 2}) {
        const bool ahead = sheet != page();
        if (sheet < 0 || sheet >= m_sheets.size() || (ahead && m_zoom > 1)) // those take much memory
            continue;
        const QSize pixels = sizeOf(sheet) * devicePixelRatioF();
        if (!pixels.isEmpty())
            wishes.append({sheet, pixels});
    }
    m_pictures.draw(wishes);
}

bool CSheetPreview::isDrawn(int page) const
{
    return m_pictures.picture(page).size() == sizeOf(page) * devicePixelRatioF();
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
    else // a number was typed: Enter shows its sheet, and does not end the dialog
        return m_number->hasFocus() && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
    return true;
}

void CSheetPreview::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updatePage();
}
