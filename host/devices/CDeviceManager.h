// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "host/devices/CDeviceTable.h"
#include "host/devices/simulated/SSimulationFault.h"
#include "layout/api/LayoutNotification.h"
#include "layout/api/records/SHostRecords.h"
#include "platform/common/CResult.h"

#include <QObject>
#include <QSet>

#include <any>
#include <functional>
#include <memory>

class CDeviceJob;
class CDeviceTreeModel;
class CJobRunner;
class CMailbox;
class CProjectShelf;
class CSimulatedPark;
class CSimulatedProcessor;
class CSubject;
class CUpdateThread;
struct SProcessorProject;

/// How the manager reaches its devices.
struct SDeviceSettings
{
    QString stateFolder;     ///< where the simulated processors keep their state between starts
    double delayScale = 1.0; ///< factor of all simulated delays and time-outs; 0: answers at once
};

/// The host's devices: knows the processors, their working layouts and the selection, works with the devices
/// in the background, and announces what changes to the modules. A GUI-thread object; what handlers need from
/// other threads they take from table() and notify().
class CDeviceManager final : public QObject
{
    Q_OBJECT

public:
    /// Asks the user a yes-or-no question, on the GUI thread.
    using Confirm = std::function<bool(const QString &text)>;
    using Done = std::function<void(const SDeviceOutcome &)>;

    explicit CDeviceManager(const SDeviceSettings &settings, QObject *parent = nullptr);
    ~CDeviceManager() override; ///< stops first

    CDeviceTable &table() { return *m_table; }
    const CDeviceTable &table() const { return *m_table; }
    CDeviceTreeModel &treeModel() { return *m_tree; }
    /// Sends the host's notifications, on the Update thread.
    CSubject &subject();
    /// Queues a notification of the modules. Any thread.
    void notify(LayoutNotification code, std::any argument = {});

    /// Without it, questions count as answered with No.
    void setConfirm(Confirm confirm);

    /// Searches for processors in the background; those that answer are read. A layout with unsaved edits is
    /// kept. While another job runs nothing happens but that @p done is told so.
    void detect(Done done = {});
    /// Reads mappings in the background; see ILayoutInterfaceHandler::readMapping().
    void readMapping(const QList<QUuid> &processors, const SMappingOptions &options, Done done = {});
    /// Saves the working layouts in the background. Asks before a mapping is overwritten that somebody else
    /// changed.
    void saveMapping(const QList<QUuid> &processors, Done done = {});
    /// The running job, or null.
    CDeviceJob *currentJob() const;

    /// Sets what is selected in the device tree. A single processor becomes the current one.
    void select(const QList<QUuid> &processors, PrcTreeNodeType type);

    // Projects are read, made and written in the background; until that is done, painting and notifications
    // go on, and the user's input waits.
    /// Opens a "*.sprj" file as a processor without device; gives its key. A file that is open is found
    /// again.
    CResult<QUuid> openProject(const QString &file);
    /// Opens the demo wall as a project without file; gives its key.
    CResult<QUuid> openDemo();
    /// Adds a project that is not saved yet; gives its key.
    CResult<QUuid> addProject(const SProcessorProject &project);
    /// Writes a processor's layout and settings; a project is from then on the one of that file.
    CStatus saveProject(const QUuid &processor, const QString &file);
    /// Removes a project processor, saved or not.
    void closeProject(const QUuid &project);
    QString projectFile(const QUuid &project) const; ///< empty: none yet, or no project
    bool isProject(const QUuid &processor) const;
    /// Whether the working layout or a project's settings differ from what was last read or saved.
    bool isModified(const QUuid &processor) const;

    /// Switches a fault of a simulated processor; the host learns of it at the next exchange.
    void simulate(const QUuid &processor, SimulationFault fault, bool on);
    bool isSimulated(const QUuid &processor, SimulationFault fault) const;
    /// The simulated device behind a processor; null for projects and unknown keys. Any thread.
    std::shared_ptr<CSimulatedProcessor> device(const QUuid &processor) const;

    /// Cancels what runs, waits for it and tells that it was cancelled; delivers the notifications that wait.
    /// Nothing can be started afterwards. A second call does nothing.
    void stop();

    // For handlers and workers, any thread.
    /// Runs @p work on the GUI thread, later; dropped once stopped.
    void post(std::function<void()> work);
    const CSimulatedPark &park() const { return *m_park; }
    /// Takes note of whether a processor answers.
    void setOnline(const QUuid &processor, bool online);
    void announceLayout(const QUuid &processor); ///< the host has replaced the working layout
    void announceCommit(const QUuid &processor); ///< the module has handed a layout over
    void announceState();                        ///< names, states, what is modified

Q_SIGNALS:
    void jobStarted(CDeviceJob *job);
    void jobFinished(CDeviceJob *job, const SDeviceOutcome &outcome); ///< the job is deleted afterwards
    void detectionFinished(int online);
    void currentProcessorChanged(const QUuid &processor); ///< null: none
    void processorsChanged();                             ///< added, removed, renamed, or another state
    void layoutCommitted(const QUuid &processor);         ///< another working layout or canvas
    void screenRequested(bool shown);                     ///< the module's "Show screen"
    void typeLibraryRequested(QWidget *parent);
    /// Cabinets that stand out on the wall, in place of those before.
    void highlightChanged(const QUuid &processor, const QList<CabinetLayout::CabinetPort::Cabinet> &cabinets,
                          CabinetHighlight highlight);
    void numbersShownChanged(const QUuid &processor, bool shown); ///< the cabinets show their numbers
    void statusLedChanged(const QUuid &processor, bool on);

private:
    void connectSignals();
    void onJobStarted(CDeviceJob *job);
    void onJobFinished(CDeviceJob *job, const SDeviceOutcome &outcome);
    void readWhatIsDue();

    const std::unique_ptr<CMailbox> m_mailbox;
    const std::unique_ptr<CUpdateThread> m_updates;
    const std::unique_ptr<CDeviceTable> m_table;
    const std::unique_ptr<CSimulatedPark> m_park;
    const std::unique_ptr<CProjectShelf> m_projects;
    CDeviceTreeModel *const m_tree;
    CJobRunner *const m_jobs;
    QSet<QUuid> m_realtime; // read again when their mapping changes
    QSet<QUuid> m_due;      // of these, those whose mapping has changed
};
