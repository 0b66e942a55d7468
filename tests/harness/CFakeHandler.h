// SPDX-FileCopyrightText: 2026 Velmarinth
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "tests/harness/CUncalledOperations.h"

#include <QMap>
#include <QSet>
#include <QStringList>

#include <mutex>
#include <thread>

/// A handler for tests: notes every call and gives the answers that the test has put into its members. Any
/// thread may call it at any time; a test gets at its members by CFakeHost::answers() only.
class CFakeHandler final : public CUncalledOperations
{
public:
    using Port = CabinetLayout::CabinetPort;
    using Cabinets = QList<Port::Cabinet>;

    // Answers.
    QList<ProcessorTree::ProcessorNode> nodes; ///< all processors of the tree
    QUuid current;                             ///< key of the processor in view
    QList<QUuid> selected;
    QMap<QUuid, LayoutData> layouts; ///< working layouts; commitLayoutData() replaces them
    QSet<QUuid> fiber;               ///< processors in fibre optic transceiver mode
    QMap<int, int> loads;            ///< percent by port index
    QVector<SSettings::TypeLibrary::STreeNode> library;
    QMap<QUuid, SBackgroundInfo> backgrounds;
    ProcessorBoundingRects rects;
    QList<QPair<QUuid, QUuid>> redundancies;
    QSet<QString> refused; ///< names of the operations that give false
    QString error = QStringLiteral("The processor does not answer.");
    SDeviceOutcome outcome; ///< how background operations end
    int preparation = 0;
    int maximumPorts = 16;
    int detected = 1;
    bool followUpNeeded = false;
    bool primaryPorts = true;
    int hertz = 60;
    int bits = 8;
    SCanvasLimits limits{16384, 16384, 16384LL * 8192};
    SSignalModes modes{{50, 60, 120, 240}, {8, 10, 12}};
    CanvasBlock block = CanvasBlock::None;
    QList<SCurrentGain> gains;
    LayoutData saved;                      ///< what saveMapping() was given
    SMappingOptions readOptions;           ///< what readMapping() was given
    ReadSaveMappingRole role{};            ///< of the last read or save
    bool answerLater = false;              ///< reads and saves wait for CFakeHost::endWaiting()
    std::function<void(QString)> onCalled; ///< told each call's text, on the calling thread

    // What was called.
    /// The calls so far, each as "name" or "name(arguments)", in order.
    QStringList calls() const;
    /// How many calls there were of the operation @p name.
    int count(const QString &name) const;
    /// The thread of the last call of @p name.
    std::thread::id threadOf(const QString &name) const;
    void forgetCalls();

    // ILayoutInterfaceHandler
    QSize getCanvasSize() const override;
    void showScreen(bool shown) override;
    void applyLayoutFollowUp(bool full) override;
    ProcessorTree::ProcessorNode getProcessorNode(const QUuid &processor) const override;
    void commitLayoutData(const LayoutData &data) override;
    bool exportProcessorMapping(const QUuid &processor, const QString &file) override;
    bool importProcessorMapping(const QUuid &processor, const QString &file, bool overwriteLocked) override;
    bool setCabinetStatusLed(bool on) override;
    int getDetectedProcessorCount() const override;
    bool layoutFollowUpNeeded() const override;
    bool isFiberTransceiverMode(const QUuid &processor) const override;
    ProcessorTree::ProcessorNode currentProcessorNode() const override;
    LayoutData layoutData(const QUuid &processor) const override;
    int preparatoryStep(const QUuid &processor) const override;
    void performPreparatoryStep(const QUuid &processor) override;
    QList<ProcessorTree::ProcessorNode> selectedProcessors() const override;
    QString lastError() const override;
    QList<ProcessorTree::ProcessorNode> processors() const override;
    bool copyProcessorMapping(const QUuid &from, const QUuid &to, bool overwriteLocked) override;
    int outputPortCount(const QUuid &processor) const override;
    int maximumPortCount(const QUuid &processor) const override;
    bool setOutputPortCount(const QUuid &processor, int count) override;
    bool setProcessorRedundancy(const QUuid &primary, const QUuid &redundancy) override;
    bool cancelProcessorRedundancy(const QUuid &processor) override;
    QList<QPair<QUuid, QUuid>> processorRedundancies() const override;
    ProcessorTree::ProcessorNode processorOfCabinet(const QUuid &cabinet) const override;
    bool setWorkMode(const QUuid &processor, ProcessorWorkMode mode) override;
    QVector<SSettings::TypeLibrary::STreeNode> typeLibrary() const override;
    bool setCabinetHighlight(const Cabinets &cabinets, CabinetHighlight highlight) override;
    bool exportCabinetConfig(const Port::Cabinet &cabinet, const QString &file) override;
    bool readbackCabinetConfig(int port, const Port::Cabinet &cabinet, const QString &file,
                               const QString &typeName) override;
    bool setPortRedundancy(int primary, int backup) override;
    int portLoad(const Port &port, int index) const override;
    void readMapping(ReadSaveMappingRole role, const SMappingOptions &options, Done done) override;
    void saveMapping(ReadSaveMappingRole role, const LayoutData &data, Done done) override;
    void showTypeLibrary(QWidget *parent) override;
    bool areOnPrimaryPorts(const Cabinets &cabinets) const override;
    bool sendCabinetParameters(const Cabinets &cabinets, const SMD5 &type, double gamma) override;
    QList<SCurrentGain> currentGains() const override;
    bool importCurrentGain(const QString &file) override;
    bool clearCurrentGains() override;
    bool sendCurrentGains(const QList<SCurrentGain> &gains) override;
    SCanvasLimits canvasLimits() const override;
    CanvasBlock canvasBlock() const override;
    bool setCanvasSize(const QSize &size) override;
    int frameRate() const override;
    int colorDepth() const override;
    SSignalModes signalModes() const override;
    bool setFrameRateAndColorDepth(int hertz, int bits) override;
    SBackgroundInfo background(const QUuid &processor) const override;
    bool setBackground(const SBackgroundInfo &info) override;
    ProcessorBoundingRects processorBoundingRects(const QList<QUuid> &processors) const override;
    bool setProcessorOffsets(const ProcessorOffsets &offsets) override;

private:
    friend class CFakeAnswers;
    friend class CFakeHost;
    using Lock = std::unique_lock<std::recursive_mutex>;

    /// Notes the call; the members are safe as long as the lock lives.
    [[nodiscard]] Lock note(const char *name, const QStringList &arguments = {}) const;
    bool answer(const char *name, const QStringList &arguments = {}) const;
    template <typename Value>
    bool take(const char *name, Value &member, const Value &value);
    void end(Lock lock, Done done);
    void endWaiting(const SDeviceOutcome &ended);
    static QString text(const QUuid &uuid);
    static QString text(bool value);
    static QString text(int value);

    mutable std::recursive_mutex m_mutex; // guards all members; nobody is called back under it
    mutable QStringList m_calls;
    mutable QMap<QString, std::thread::id> m_threads;
    std::vector<Done> m_waiting;
};

/// The members of a fake handler, which no other thread sees or changes as long as this lives: for one
/// expression, answers()->current, or for a scope when it has a name. A range of a loop takes a name.
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
