// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#include "layout/api/records/RecordMetaTypes.h"
#include "platform/widgets/CTheme.h"
#include "tests/app/CWindowUser.h"
#include "tests/harness/CTestBase.h"

#include <QListView>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <random>

namespace {

using Area = CWindowUser::PortArea;

/// The window with a project that was saved, and the list of its steps.
class CSavedProject final
{
public:
    CSavedProject()
        : m_user(m_folder.filePath(QStringLiteral("devices")))
        , m_project(manager().projects().openDemo().value())
    {
        save();
        manager().services().select({m_project}, PrcTreeNodeType::Processor);
        const QList<QListView *> lists = m_user.window().findChildren<QListView *>();
        for (QListView *list : lists) {
            if (list->accessibleName() == QStringLiteral("Steps of the history"))
                m_steps = list;
        }
    }
    CWindowUser &user() { return m_user; }
    CDeviceManager &manager() { return m_user.window().manager(); }
    bool isShown()
    {
        return m_steps && m_user.canvas() && !m_user.portName(1).isEmpty() &&
               m_steps->model()->rowCount() > 0;
    }
    bool isModified()
    {
        manager().services().flush();
        return manager().table().isModified(m_project);
    }

    void save()
    {
        QVERIFY(bool(manager().projects().save(m_project, m_folder.filePath(QStringLiteral("wall.sprj")))));
    }
    void nudge(int port, int key)
    {
        m_user.clickPort(port, Area::Label);
        m_user.key(key);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers)
    {
        QTest::keyClick(m_user.canvas(), key, modifiers);
    }
    /// Lets the project keep other notes for its plans.
    void setNotes(bool other)
    {
        manager().table().change(m_project, [other](SDevice &device) {
            device.print = device.savedPrint;
            device.print.notes += QString(other ? 1 : 0, QLatin1Char('.'));
        });
        manager().announcer().announceState();
    }
    void setThreeD(bool on) { QVERIFY(bool(manager().commands().setThreeD(m_project, on))); }
    void setFrameRate(int hertz) { QVERIFY(bool(manager().commands().setSignal(hertz, 8))); }
    void choose(int row) { Q_EMIT m_steps->clicked(m_steps->model()->index(row, 0)); }

    int rows() const { return m_steps->model()->rowCount(); }
    int currentRow() const { return m_steps->currentIndex().row(); }
    bool isMarked(int row) const
    {
        return m_steps->model()->index(row, 0).data().toString().endsWith(QLatin1String(" (saved)"));
    }
    /// Waits for the marks and the title to tell what the host knows.
    void verify()
    {
        const bool modified = isModified();
        QTRY_COMPARE(m_user.window().isWindowModified(), modified);
        QTRY_COMPARE(isMarked(currentRow()), !modified);
    }

private:
    QTemporaryDir m_folder;
    CWindowUser m_user;
    QUuid m_project;
    QListView *m_steps = nullptr;
};

} // namespace

/// Which rows of the list of steps say that the layout is as it was saved.
class CSavedRowsTest final : public CTestBase
{
    Q_OBJECT

private:
    std::unique_ptr<CSavedProject> m_project; // one for all, as the module starts only once

private Q_SLOTS:
    void initTestCase()
    {
        registerRecordMetaTypes();
        CTheme::apply(*qApp);
        QApplication::setQuitOnLastWindowClosed(false);
        m_project = std::make_unique<CSavedProject>();
        QTRY_VERIFY(m_project->isShown());
    }
    void cleanupTestCase() { m_project.reset(); }

    void aChangeWithoutStepTakesAllMarks()
    {
        CSavedProject &project = *m_project;
        project.verify();
        project.nudge(1, Qt::Key_Right);
        project.verify();
        QVERIFY(project.isMarked(0));
        using Change = std::function<void(bool)>;
        const Change changes[] = {
            [&](bool) { project.user().clickPort(3, Area::Lock); }, [&](bool on) { project.setNotes(on); },
            [&](bool on) { project.setThreeD(on); }, [&](bool on) { project.setFrameRate(on ? 50 : 60); }};
        for (const Change &change : changes) {
            change(true);
            QTRY_VERIFY(!project.isMarked(0));
            project.nudge(2, Qt::Key_Right);
            project.verify();
            change(false);
            project.press(Qt::Key_Z, Qt::ControlModifier);
            QTRY_VERIFY(project.isMarked(0));
            project.verify();
        }
        project.press(Qt::Key_Z, Qt::ControlModifier);
        project.verify();
        QVERIFY(!project.isModified());
    }

    void marksAndTitleAgree()
    {
        CSavedProject &project = *m_project;
        std::mt19937 random(20261);
        const auto pick = [&random](int count) { return int(random() % unsigned(count)); };
        bool threeD = false;
        const std::function<void()> actions[] = {[&] { project.nudge(1 + pick(2), Qt::Key_Right); },
                                                 [&] { project.nudge(1 + pick(2), Qt::Key_Left); },
                                                 [&] { project.press(Qt::Key_Z, Qt::ControlModifier); },
                                                 [&] { project.press(Qt::Key_Z, Qt::ControlModifier); },
                                                 [&] { project.press(Qt::Key_Y, Qt::ControlModifier); },
                                                 [&] { project.choose(pick(project.rows())); },
                                                 [&] { project.user().clickPort(3, Area::Lock); },
                                                 [&] { project.setNotes(pick(3) == 0); },
                                                 [&] { project.setThreeD(threeD = !threeD); },
                                                 [&] { project.save(); }};
        for (int i = 0; i < 120; ++i) {
            const int action = pick(int(std::size(actions)));
            actions[action]();
            project.verify();
            if (QTest::currentTestFailed()) {
                qWarning("after action %d, number %d", action, i);
                return;
            }
        }
        for (int row = 0; row < project.rows(); ++row) {
            const bool said = project.isMarked(row);
            project.choose(row);
            project.verify();
            QVERIFY(!said || !project.isModified());
        }
    }
};

ORVO_TEST_MAIN(QApplication, CSavedRowsTest)
#include "tst_saved_rows.moc"
