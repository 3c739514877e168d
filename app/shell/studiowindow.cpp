#include "shell/studiowindow.h"

#include "create/viewportmenu.h"
#include "document/documentcontroller.h"
#include "document/droppedfile.h"
#include "document/motioncommands.h"
#include "document/recentfiles.h"
#include "document/savefiledialog.h"
#include "io/vxbackups.h"
#include "markers/markerfiles.h"
#include "posetools/autokeymark.h"
#include "posetools/posetoolbar.h"
#include "posetools/posetools.h"
#include "recovery/recoverycontroller.h"
#include "shell/aboutbox.h"
#include "shell/historystatus.h"
#include "shell/keyoverviewdialog.h"
#include "shell/panedocks.h"
#include "shell/studiomenus.h"
#include "shell/timelabel.h"
#include "shortcuts/shortcutcatalogue.h"
#include "viewport/emptysceneoffer.h"
#include "viewport/motiontrails.h"
#include "viewport/viewportwidget.h"
#include "widgets/focusring.h"
#include "widgets/usermessages.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <cmath>
#include <vxcore/vxactionmgr.h>
#include <vxcore/vxapp.h>
#include <vxcore/vxnodeisolation.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>
#include <vxcore/vxundostack.h>

namespace {

constexpr QSize DefaultSize(1280, 800);
constexpr QSize FrameRoom(16, 48); // window frame of a desktop, pixels
constexpr double LargeScreenShare = 0.8;
constexpr double LikeSizes = 0.1; // windows that differ by less share a layout
constexpr int LayoutVersion = 3;  // to increase when docks are arranged in another way

/** The offscreen platform's screen has no meaningful size. */
bool hasRealScreen()
{
    return QGuiApplication::platformName() != QLatin1String("offscreen");
}

} // namespace

StudioWindow::StudioWindow(UserMessages *messages, const QString &recoveryFolder)
    : m_messages(messages)
    , m_document(new DocumentController(vxApp->getScene(), vxApp->getUndoStack(), messages, this))
    , m_viewport(new ViewportWidget(vxApp->getScene(), getViewportMgr()))
    , m_docks(new PaneDocks(this, getPaneMgr()))
    , m_recentFiles(new RecentFiles(this))
    , m_recovery(new RecoveryController(recoveryFolder, m_document, vxApp->getScene(),
                                        vxApp->getUndoStack(), messages, this))
    , m_motion(new MotionCommands(m_document, messages, vxApp->getScene(), this))
    , m_menus(new StudioMenus(this))
{
    setObjectName(QStringLiteral("StudioWindow"));
    // Not animated: the toolkit ignores changes of the layout during the animation.
    setDockOptions(AllowNestedDocks | AllowTabbedDocks);
    setCorner(Qt::BottomLeftCorner, Qt::BottomDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::BottomDockWidgetArea);
    setCentralWidget(m_viewport);
    m_viewport->addLowerLayer(new MotionTrails(vxApp->getScene(), m_viewport));
    setAcceptDrops(true);
    resize(DefaultSize);
    auto *tools = new PoseTools(vxApp->getScene(), m_viewport);
    m_toolBar = new PoseToolBar(tools, m_viewport);
    statusBar()->addPermanentWidget(
        new TimeLabel(vxApp->getScene(), m_menus->timeDisplayMenu(), this));
    statusBar()->addPermanentWidget(new AutoKeyMark(vxApp->getScene(), this));
    new FocusRing(this);
    new HistoryStatus(vxApp->getUndoStack(), messages, this);
    m_recovery->setMayReplace([this] { return mayDiscard(); });
    m_document->setSaveAs([this] { return saveWithDialog(); });
    connect(m_document, &DocumentController::documentChanged, this,
            &StudioWindow::handleDocumentChanged);
    connect(vxApp->getUndoStack(), &VxUndoStack::cleanChanged, this, &StudioWindow::updateTitle);
    connect(m_viewport, &ViewportWidget::isolationRequested, this, [](VxNode *node) {
        if (VxNodeIsolation *isolation = VxNodeIsolation::current())
            isolation->setNodes({node});
    });
    connect(m_viewport, &ViewportWidget::message, this,
            [this](const QString &text) { m_messages->showStatus(text); });
    updateTitle();
}

void StudioWindow::completeMenus()
{
    m_menus->addActionsAndPanes(*m_docks);
    m_toolBar->showShortcuts(*getActionMgr());
    auto *offer = new EmptySceneOffer(vxApp->getScene(), m_viewport);
    const auto offerCommand = [this, offer](const char *name, const QString &text = QString()) {
        offer->addCommand(getActionMgr()->findCommand(QLatin1String(name)), text);
    };
    offerCommand("StudioOpen");
    offerCommand("StudioImportMotion");
    offerCommand("VxCreateFigureAction", tr("Create Figure"));
    offerCommand("VxCreateSkeletonAction", tr("Create Skeleton"));
    offerCommand("StudioOpenSample");
    new ViewportMenu(vxApp->getScene(), m_viewport);
}

QSize StudioWindow::firstSize(const QSize &available)
{
    return (available * LargeScreenShare)
        .expandedTo(DefaultSize)
        .boundedTo((available - FrameRoom).expandedTo(QSize(1, 1)));
}

void StudioWindow::restoreLayout(const VxSettings &settings)
{
    const QByteArray geometry = settings.getBytesValue(QStringLiteral("Geometry"));
    const QByteArray state = settings.getBytesValue(QStringLiteral("State"));
    if ((geometry.isEmpty() || !restoreGeometry(geometry)) && hasRealScreen())
        resize(firstSize(screen()->availableSize()));
    m_needsDefaultLayout = state.isEmpty() || !restoreState(state, LayoutVersion);
    m_layoutSize = QSize(settings.getIntValue(QStringLiteral("Width"), 0),
                         settings.getIntValue(QStringLiteral("Height"), 0));
}

/** Whether the docks have the sizes of a window that was much larger or smaller. */
bool StudioWindow::hasSizesOfAnother() const
{
    // A window about to fill the screen does not have its size yet.
    if (m_layoutSize.isEmpty() || isMaximized() || isFullScreen())
        return false;
    const auto differs = [](int one, int other) {
        return std::abs(one - other) > qMax(one, other) * LikeSizes;
    };
    return differs(width(), m_layoutSize.width()) || differs(height(), m_layoutSize.height());
}

void StudioWindow::saveLayout(VxSettings *settings) const
{
    // A window that was never shown has no layout yet; its docks' state would hide the timeline.
    if (m_needsDefaultLayout)
        return;
    settings->setBytesValue(QStringLiteral("Geometry"), saveGeometry());
    settings->setBytesValue(QStringLiteral("State"), saveState(LayoutVersion));
    settings->setIntValue(QStringLiteral("Width"), width());
    settings->setIntValue(QStringLiteral("Height"), height());
}

void StudioWindow::applyDefaultLayout()
{
    m_docks->applyDefaultLayout();
}

void StudioWindow::restoreDefaultLayout()
{
    applyDefaultLayout();
    m_messages->showStatus(tr("The default pane layout has been restored."));
}

void StudioWindow::openWithDialog()
{
    if (!mayDiscard())
        return;
    const QString file =
        QFileDialog::getOpenFileName(this, tr("Open"), startFolder(),
                                     m_document->formats().readFilters().join(QLatin1String(";;")));
    if (!file.isEmpty())
        m_motion->openFile(file);
}

void StudioWindow::openAfterAsking(const QString &fileName)
{
    if (mayDiscard())
        m_document->open(fileName);
}

void StudioWindow::openSample()
{
    if (mayDiscard())
        m_document->openSample();
}

void StudioWindow::revert()
{
    const QString file = m_document->fileName();
    if (!file.isEmpty() &&
        (vxApp->getUndoStack()->isClean() || m_messages->askToRevert(m_document->displayName())))
        m_document->open(file);
}

/** The initial folder of file dialogs: that of the document, else of the file used last. */
QString StudioWindow::startFolder() const
{
    return m_document->fileName().isEmpty() ? m_recentFiles->latestFolder()
                                            : QFileInfo(m_document->fileName()).absolutePath();
}

void StudioWindow::newDocument()
{
    if (mayDiscard())
        m_document->clear();
}

bool StudioWindow::save()
{
    return m_document->hasWritableFile() ? m_document->save(m_document->fileName())
                                         : saveWithDialog();
}

bool StudioWindow::saveWithDialog()
{
    // A backup is saved as the document that it is one of.
    const QString original = VxBackups::originalOf(m_document->fileName());
    const QFileInfo present(original.isEmpty() ? m_document->fileName() : original);
    const QString name =
        m_document->fileName().isEmpty() ? m_document->displayName() : present.completeBaseName();
    SaveFileDialog dialog(tr("Save As"), m_messages, this);
    dialog.setStart(startFolder(), name);
    dialog.setKind(QStringLiteral("vxscene"), m_document->formats().writeFilters());
    const QString file = dialog.ask();
    return !file.isEmpty() && m_document->save(file);
}

void StudioWindow::importMotion()
{
    m_motion->importWithDialog(startFolder());
}

void StudioWindow::exportMotion()
{
    m_motion->exportWithDialog(startFolder());
}

void StudioWindow::importMarkers()
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Import Markers"), startFolder(),
                                                      tr("Tables of markers (*.csv)"));
    if (file.isEmpty())
        return;
    VxFileError error;
    const QString done = MarkerFiles::importFile(vxApp->getScene(), file, &error);
    if (error.isSet())
        m_messages->showError(error.text());
    else
        m_messages->showStatus(done);
}

void StudioWindow::exportMarkers()
{
    SaveFileDialog dialog(tr("Export Markers"), m_messages, this);
    dialog.setStart(startFolder(), tr("Markers"));
    dialog.setKind(QStringLiteral("csv"), {tr("Tables of markers (*.csv)")});
    const QString file = dialog.ask();
    if (file.isEmpty())
        return;
    VxFileError error;
    if (MarkerFiles::exportFile(vxApp->getScene(), file, &error))
        m_messages->showStatus(tr("The markers have been saved."));
    else
        m_messages->showError(error.text());
}

ShortcutList StudioWindow::shortcuts() const
{
    return ShortcutCatalogue::collect(*menuBar(), *getActionMgr());
}

void StudioWindow::applyShortcuts(const ShortcutList &list)
{
    ShortcutCatalogue::apply(list, getActionMgr());
    m_toolBar->showShortcuts(*getActionMgr());
    if (m_keyOverview)
        m_keyOverview->showShortcuts(shortcuts());
}

void StudioWindow::showImportReport()
{
    m_motion->showReport();
}

void StudioWindow::showAbout()
{
    showAboutBox(this, *vxApp->getPluginMgr());
}

void StudioWindow::showKeyOverview()
{
    if (!m_keyOverview) {
        m_keyOverview = new KeyOverviewDialog(this);
        connect(m_keyOverview, &KeyOverviewDialog::changeRequested, this,
                &StudioWindow::requestShortcuts);
    }
    m_keyOverview->showShortcuts(shortcuts());
    m_keyOverview->show();
    m_keyOverview->raise();
    m_keyOverview->activateWindow();
}

/** True when there are no unsaved changes, or they are saved now, or the user discards them. */
bool StudioWindow::mayDiscard()
{
    if (vxApp->getUndoStack()->isClean())
        return true;
    switch (m_messages->askToSave(m_document->displayName())) {
    case UserMessages::Choice::Save:
        return save();
    case UserMessages::Choice::Discard:
        return true;
    case UserMessages::Choice::Cancel:
        break;
    }
    return false;
}

void StudioWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayDiscard());
    // Saved, or discarded by the user; the copy is kept if the program ends in any other way.
    if (event->isAccepted())
        m_recovery->autoSave()->dropCopy();
}

bool StudioWindow::event(QEvent *event)
{
    if (event->type() == QEvent::WindowActivate)
        m_document->checkFile();
    return VxMainWindow::event(event);
}

/** Dock sizes take effect only once the window has its own. */
void StudioWindow::showEvent(QShowEvent *event)
{
    VxMainWindow::showEvent(event);
    if (m_needsDefaultLayout)
        applyDefaultLayout();
    else if (hasSizesOfAnother())
        m_docks->applyDefaultSizes();
    m_needsDefaultLayout = false;
    m_layoutSize = QSize();
}

void StudioWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!droppedFile(event->mimeData(), m_document->formats()).isEmpty())
        event->acceptProposedAction();
}

void StudioWindow::dropEvent(QDropEvent *event)
{
    const QString file = droppedFile(event->mimeData(), m_document->formats());
    if (file.isEmpty())
        return;
    event->acceptProposedAction();
    // A question in here would block the drag's source program.
    QTimer::singleShot(0, this, [this, file] { openDroppedFile(file); });
}

void StudioWindow::openDroppedFile(const QString &fileName)
{
    auto arrival = UserMessages::Arrival::Open;
    if (vxApp->getScene()->getNumNodes() > 0 && m_document->formats().isMotion(fileName))
        arrival = m_messages->askHowToOpen(QFileInfo(fileName).fileName());
    if (arrival == UserMessages::Arrival::Open && mayDiscard())
        m_motion->openFile(fileName);
    else if (arrival == UserMessages::Arrival::Import)
        m_motion->importFile(fileName);
}

void StudioWindow::handleDocumentChanged()
{
    // Unattended runs leave the user's list unchanged.
    if (!m_messages->isConsole())
        m_recentFiles->add(m_document->fileName());
    updateTitle();
}

void StudioWindow::updateTitle()
{
    // Doubled, the placeholder for the mark is literal.
    const QString name =
        m_document->displayName().replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    setWindowTitle(QStringLiteral("%1[*] - %2").arg(name, VxApp::getAppName()));
    const bool modified = !vxApp->getUndoStack()->isClean();
    setWindowModified(modified);
    m_menus->setRevertEnabled(modified && !m_document->fileName().isEmpty());
}
