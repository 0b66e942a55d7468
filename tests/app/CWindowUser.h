// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/app/CMainWindow.h"
#include "layout/api/records/LayoutData.h"
#include "tests/harness/CMessageBoxAnswerer.h"

#include <QDialog>
#include <QGraphicsView>

#include <functional>
#include <memory>

class QAbstractButton;
class QSpinBox;

/// Uses the program's window as a user does, by clicks and keys, and counts the clicks. Everything waits for
/// what it needs, and returns whether that came.
class CWindowUser final
{
public:
    /// The three pictures in the button of an output port.
    enum class PortArea { Fill, Lock, Append, Label };

    /// Opens the window with the real module; the devices keep their state in @p stateFolder. With an empty
    /// @p journalFolder nothing is kept for a crash. Devices take @p delays of the usual time to answer.
    explicit CWindowUser(const QString &stateFolder, const QString &journalFolder = {}, double delays = 0.1);
    ~CWindowUser();

    CMainWindow &window() { return *m_window; }
    int clicks() const { return m_clicks; }

    void click(QWidget &widget, const QPoint &place, Qt::MouseButton button = Qt::LeftButton);
    void click(QWidget &widget) { click(widget, widget.rect().center()); }
    bool clickButton(const char *textOrTip);
    /// Goes through menus that are open or open on the way: "Lock options>Lock current output port".
    bool choose(const QString &path);
    bool chooseInMenuBar(const QString &path);
    /// The same in the menu that @p open opens, which may wait until it is closed.
    bool chooseFrom(const std::function<bool()> &open, const QString &path);
    /// Replaces what a field says, by a double click and keys.
    void enter(QWidget &field, const QString &text);
    /// The field of the side panel with that accessible name; null: none.
    QWidget *field(const char *name) const;

    bool detect();
    bool detectByKey();
    bool openProcessor(const QString &name); ///< until the editor shows it
    bool isOpen(const QString &name) const;
    bool clickInTree(const QString &name, Qt::MouseButton button = Qt::LeftButton);
    bool clickPort(int number, PortArea area, Qt::MouseButton button = Qt::LeftButton);
    QString portName(int number) const; ///< what a screen reader says of the port's button

    QGraphicsView *canvas() const;
    void key(int key); ///< pressed on the canvas
    /// Presses keys on what has the focus, or on the open menu.
    void press(const QVector<int> &keys);
    /// Goes by Tab to the widget with that class, text, tool tip or accessible name.
    bool tabTo(const char *name);
    /// Presses at one place of the scene and releases at the other.
    void drag(const QPointF &from, const QPointF &to);

    /// Lets @p act use the next dialog with that title once it is on screen. Call it before the click that
    /// opens it.
    void inDialog(const QString &title, const std::function<void(QDialog &)> &act);
    /// Clicks "Read" or "Save" of the side panel, and returns the message that the user confirms.
    QString reportOf(const char *button);
    /// Answers the message boxes that @p act causes, by clicks; returns their texts.
    QStringList answering(const QStringList &answers, const std::function<void()> &act);

    /// The processor with that name, its edits included.
    SDevice device(const QString &name);
    bool closeWindow();
    /// Keeps a picture of @p widget, the window if null, beside the test's program.
    void keepPicture(const char *name, QWidget *widget = nullptr);

private:
    QWidget *portButton(int number) const;
    QAbstractButton *visibleButton(const char *textOrTip) const;

    std::unique_ptr<CMainWindow> m_window;
    int m_clicks = 0;
};
