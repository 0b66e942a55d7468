// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/harness/CUncalledOperations.h"

#include <QMap>
#include <QSet>
#include <QStringList>
#include <QVariant>

#include <mutex>
#include <thread>

/// A handler for tests: records every call and returns the answers that the test has put into its members.
/// Any thread may call it at any time; tests access its members through CFakeHost::answers() only.
class CFakeHandler final : public CUncalledOperations
{
public:
    using Port = CabinetLayout::CabinetPort;
    using Cabinet = Port::Cabinet;
    using Cabinets = QList<Cabinet>;
    using Library = QVector<SSettings::TypeLibrary::STreeNode>;
    using Node = ProcessorTree::ProcessorNode;

    // Answers.
    QList<Node> nodes; ///< all processors of the tree
    QUuid current;     ///< key of the processor in view
    QList<QUuid> selected;
    QMap<QUuid, LayoutData> layouts; ///< working layouts; commitLayoutData() replaces them
    QSet<QUuid> fiber;               ///< processors in fibre optic transceiver mode
    QMap<int, int> loads;            ///< percent by port index
    SPortLoad details;               ///< the figures behind each load
    Library library;
    QMap<QUuid, SBackgroundInfo> backgrounds;
    ProcessorBoundingRects rects;
    QMap<QUuid, PrintConfig> prints; ///< setPrintSettings() replaces them
    bool printsInProjects = true;
    QMap<QString, QByteArray> files; ///< written, by name
    QString fileFailure;             ///< why none is
    QList<QPair<QUuid, QUuid>> redundancies;
    QList<SPortPair> portPairs;
    QHash<SPortKey, QString> portRefusals;
    QSet<QString> refused; ///< names of the operations that return false
    QString error = QStringLiteral("The processor does not answer.");
    SDeviceOutcome outcome; ///< how background operations end
    int preparation = 0;
    int maximumPorts = 16;
    int detected = 1;
    bool followUpNeeded = false;
    bool busy = false; ///< all processors
    QHash<QUuid, SUnsavedEdits> unsaved;
    bool primaryPorts = true;
    bool redundancyBlocked = false;
    bool redundancySupported = true;
    int hertz = 60;
    int bits = 8;
    SCanvasLimits limits{16384, 16384, 16384LL * 8192};
    SSignalModes modes{{50, 60, 120, 240}, {8, 10, 12}};
    CanvasBlock block = CanvasBlock::None;
    QList<SPortArea> areas; ///< setPortAreas() replaces them
    int widthLimit = 0;
    bool threeD = false;
    QList<SCurrentGain> gains;
    QMap<QUuid, SEditHistory> histories;   ///< kept of an earlier run
    QVector<SEditRecord> records;          ///< what recordEdit() was given
    LayoutData saved;                      ///< the argument of saveMapping()
    SMappingOptions readOptions;           ///< the argument of readMapping()
    ReadSaveMappingRole role{};            ///< of the last read or save
    bool answerLater = false;              ///< reads and saves wait for CFakeHost::endWaiting()
    int answers = 1;                       ///< how often a read or save is answered
    std::function<bool(QString)> fails;    ///< whether this call of an operation goes wrong
    std::function<void(QString)> onCalled; ///< called with each call's text, on the calling thread

    // What was called.
    /// The calls so far, each as "name" or "name(arguments)", in order.
    QStringList calls() const;
    /// Number of calls of the operation @p name.
    int count(const QString &name) const;
    /// The thread of the last call of @p name.
    std::thread::id threadOf(const QString &name) const;
    void forgetCalls();

    // ILayoutInterfaceHandler
    QSize getCanvasSize() const override { return given(__func__, layouts, current).canvas; }
    void showScreen(bool shown) override { note(__func__, shown); }
    void applyLayoutFollowUp(bool full) override { note(__func__, full); }
    Node getProcessorNode(const QUuid &key) const override { return node(__func__, key); }
    void commitLayoutData(const LayoutData &data) override;
    void setPortLocked(const QUuid &key, int port, bool locked) override
    {
        changePorts(__func__, key, port, [locked](Port &known) { known.locked = locked; });
    }
    void setPortColor(const QUuid &key, int port, const QColor &color) override
    {
        changePorts(__func__, key, port, [&color](Port &known) { known.color = color; });
    }
    bool exportProcessorMapping(const QUuid &key, const QString &to) override
    {
        return answer(__func__, key, to);
    }
    bool importProcessorMapping(const QUuid &to, const QString &file, bool all) override
    {
        return answer(__func__, to, file, all);
    }
    bool setCabinetStatusLed(bool on) override { return answer(__func__, on); }
    int getDetectedProcessorCount() const override { return given(__func__, detected); }
    bool layoutFollowUpNeeded() const override { return given(__func__, followUpNeeded); }
    bool isFiberTransceiverMode(const QUuid &key) const override
    {
        return given(__func__, fiber).contains(key);
    }
    Node currentProcessorNode() const override { return node(__func__, current); }
    LayoutData layoutData(const QUuid &key) const override { return given(__func__, layouts, key); }
    int preparatoryStep(const QUuid &) const override { return given(__func__, preparation); }
    void performPreparatoryStep(const QUuid &key) override { note(__func__, key); }
    QList<Node> selectedProcessors() const override;
    QString lastError() const override { return given(__func__, error); }
    QList<Node> processors() const override { return given(__func__, nodes); }
    bool copyProcessorMapping(const QUuid &from, const QUuid &to, bool all) override
    {
        return answer(__func__, from, to, all);
    }
    int outputPortCount(const QUuid &key) const override
    {
        return given(__func__, layouts, key).layout.ports.size();
    }
    int maximumPortCount(const QUuid &) const override { return given(__func__, maximumPorts); }
    bool setOutputPortCount(const QUuid &key, int count) override { return answer(__func__, key, count); }
    bool setProcessorRedundancy(const QUuid &a, const QUuid &b) override { return answer(__func__, a, b); }
    bool cancelProcessorRedundancy(const QUuid &key) override { return answer(__func__, key); }
    QList<QPair<QUuid, QUuid>> processorRedundancies() const override
    {
        return given(__func__, redundancies);
    }
    Node processorOfCabinet(const QUuid &cabinet) const override;
    bool setWorkMode(const QUuid &key, ProcessorWorkMode to) override
    {
        return answer(__func__, key, static_cast<int>(to));
    }
    Library typeLibrary() const override { return given(__func__, library); }
    bool setCabinetHighlight(const Cabinets &all, CabinetHighlight how) override
    {
        return answer(__func__, all.size(), static_cast<int>(how));
    }
    bool exportCabinetConfig(const Cabinet &one, const QString &file) override
    {
        return answer(__func__, one.uuid, file);
    }
    bool readbackCabinetConfig(int port, const Port::Cabinet &cabinet, const QString &file,
                               const QString &typeName) override
    {
        return answer(__func__, port, cabinet.uuid, file, typeName);
    }
    bool isPortRedundancyBlocked() const override { return given(__func__, redundancyBlocked); }
    bool isPortRedundancySupported() const override { return given(__func__, redundancySupported); }
    void recordEdit(const SEditRecord &record) override
    {
        const auto lock = note(__func__, static_cast<int>(record.kind), record.index);
        records << record;
    }
    SEditHistory editHistory(const QUuid &key) const override { return given(__func__, histories, key); }
    PrintConfig printSettings(const QUuid &key) const override { return given(__func__, prints, key); }
    bool setPrintSettings(const QUuid &key, const PrintConfig &settings) override
    {
        const auto lock = note(__func__, key);
        prints[key] = settings;
        return printsInProjects;
    }
    QString writeFile(const QString &file, const QByteArray &content) override
    {
        const auto lock = note(__func__, file);
        if (fileFailure.isEmpty())
            files[file] = content;
        return fileFailure;
    }
    bool exportPortMapping(const QUuid &, int port, const QString &file) override
    {
        return answer(__func__, port, file);
    }
    bool importPortMapping(const QUuid &, int port, const QString &file, bool all) override
    {
        return answer(__func__, port, file, all);
    }
    bool setPortRedundancy(int primary, int backup) override { return answer(__func__, primary, backup); }
    bool cancelPortRedundancy(int port) override { return answer(__func__, port); }
    int portLoad(const Port &port, int index) const override
    {
        const auto lock = note(__func__, port.index, index);
        return loads.value(index);
    }
    SPortLoad portLoadDetails(const QUuid &, const Port &port, int index) const override
    {
        const auto lock = note(__func__, port.index, index);
        SPortLoad load = details;
        load.percent = loads.value(index);
        return load;
    }
    void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Done done) override;
    void saveMapping(ReadSaveMappingRole role, const LayoutData &data, Done done) override;
    bool applyProcessorRedundancy(const QList<QUuid> &, const QList<QPair<QUuid, QUuid>> &pairs) override
    {
        return take(__func__, redundancies, pairs);
    }
    bool areProcessorsOnline(const QList<QUuid> &processors) const override;
    SUnsavedEdits unsavedEdits(const QUuid &processor) const override
    {
        return given(__func__, unsaved).value(processor);
    }
    PortLocks locksBeside(const QUuid &processor) const override;
    bool areProcessorsBusy(const QList<QUuid> &) const override { return given(__func__, busy); }
    QString portPairRefusal(const SPortKey &port) const override
    {
        return given(__func__, portRefusals).value(port);
    }
    QList<SPortPair> portRedundancies() const override { return given(__func__, portPairs); }
    bool applyPortRedundancy(const QList<QUuid> &, const QList<SPortPair> &pairs) override
    {
        return take(__func__, portPairs, pairs);
    }
    QList<SPortArea> portAreas() const override { return given(__func__, areas); }
    bool setPortAreas(const QList<SPortArea> &set) override { return take(__func__, areas, set); }
    int lowLatencyWidthLimit() const override { return given(__func__, widthLimit); }
    bool isThreeDEnabled() const override { return given(__func__, threeD); }
    void showTypeLibrary(QWidget *) override { note(__func__); }
    bool areOnPrimaryPorts(const Cabinets &) const override { return given(__func__, primaryPorts); }
    bool sendCabinetParameters(const Cabinets &cabinets, const SMD5 &type, double gamma) override
    {
        return answer(__func__, cabinets.size(), QString::fromLatin1(type.toText()), QString::number(gamma));
    }
    QList<SCurrentGain> currentGains() const override { return given(__func__, gains); }
    bool importCurrentGain(const QString &file) override { return answer(__func__, file); }
    bool clearCurrentGains() override { return answer(__func__); }
    bool sendCurrentGains(const QList<SCurrentGain> &sent) override { return take(__func__, gains, sent); }
    SCanvasLimits canvasLimits() const override { return given(__func__, limits); }
    CanvasBlock canvasBlock() const override { return given(__func__, block); }
    bool setCanvasSize(const QSize &s) override { return answer(__func__, s.width(), s.height()); }
    int frameRate() const override { return given(__func__, hertz); }
    int colorDepth() const override { return given(__func__, bits); }
    SSignalModes signalModes() const override { return given(__func__, modes); }
    bool setFrameRateAndColorDepth(int rate, int depth) override { return answer(__func__, rate, depth); }
    SBackgroundInfo background(const QUuid &key) const override { return given(__func__, backgrounds, key); }
    bool setBackground(const SBackgroundInfo &b) override { return answer(__func__, b.processor, b.file); }
    ProcessorBoundingRects processorBoundingRects(const QList<QUuid> &) const override
    {
        return given(__func__, rects);
    }
    bool setProcessorOffsets(const ProcessorOffsets &offsets) override;

private:
    friend class CFakeAnswers;
    friend class CFakeHost;
    using Lock = std::unique_lock<std::recursive_mutex>;

    /// Records the call; the members are protected as long as the lock lives.
    template <typename... Arguments>
    Lock note(const char *name, const Arguments &...arguments) const
    {
        return noted(name, QStringList{text(arguments)...});
    }
    Lock noted(const char *name, const QStringList &arguments) const;
    template <typename... Arguments>
    bool answer(const char *name, const Arguments &...arguments) const
    {
        const auto lock = note(name, arguments...);
        return !m_fails && !refused.contains(QLatin1String(name));
    }
    void changePorts(const char *name, const QUuid &key, int port, const std::function<void(Port &)> &change)
    {
        const auto lock = note(name, key, port);
        for (Port &known : layouts[key].layout.ports) {
            if (!m_fails && (port == -1 || known.index == port))
                change(known);
        }
    }
    template <typename Value>
    bool take(const char *name, Value &member, const Value &value)
    {
        const auto lock = note(name);
        const bool taken = !m_fails && !refused.contains(QLatin1String(name));
        if (taken)
            member = value;
        return taken;
    }
    template <typename Value>
    Value given(const char *name, const Value &member) const
    {
        const auto lock = note(name);
        return m_fails ? Value() : member;
    }
    template <typename Value>
    Value given(const char *name, const QMap<QUuid, Value> &members, const QUuid &key) const
    {
        const auto lock = note(name);
        return m_fails ? Value() : members.value(key);
    }
    Node node(const char *name, const QUuid &key) const;
    void end(Lock lock, Done done);
    void endWaiting(const SDeviceOutcome &ended);
    static QString text(const QUuid &uuid) { return uuid.toString(QUuid::WithoutBraces); }
    static QString text(bool value) { return QVariant(value).toString(); }
    static QString text(int value) { return QString::number(value); }
    static QString text(const QString &value) { return value; }

    mutable std::recursive_mutex m_mutex; // guards all members; nobody is called back under it
    mutable QStringList m_calls;
    mutable bool m_fails = false; // the call noted last
    mutable QMap<QString, std::thread::id> m_threads;
    std::vector<Done> m_waiting;
};

/// Locked access to the members of a fake handler, for one expression (answers()->current) or, as a named
/// object, for a scope. In the range of a for loop, use a named object.
class CFakeAnswers final
{
public:
    explicit CFakeAnswers(CFakeHandler &handler)
        : m_lock(handler.m_mutex)
        , m_handler(handler)
    {
    }
    CFakeHandler *operator->() const { return &m_handler; }

private:
    CFakeHandler::Lock m_lock;
    CFakeHandler &m_handler;
};
