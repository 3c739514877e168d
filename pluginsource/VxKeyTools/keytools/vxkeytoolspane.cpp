#include "keytools/vxkeytoolspane.h"

#include "keytools/keytoolpreview.h"

#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtGui/QResizeEvent>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QVBoxLayout>
#include <algorithm>
#include <vxcore/vxkeyselection.h>
#include <vxcore/vxscene.h>
#include <vxcore/vxsettings.h>

namespace {

/// Contents of a scroll area that are as high as their wrapped texts need at the present width: in
/// a low pane they scroll instead of being squeezed.
class WrappedContents : public QWidget
{
public:
    QSize minimumSizeHint() const override
    {
        const QSize least = QWidget::minimumSizeHint();
        return {least.width(), std::max(least.height(), layout()->totalHeightForWidth(width()))};
    }

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QWidget::resizeEvent(event);
        if (event->size().width() != event->oldSize().width())
            updateGeometry();
    }
};

QString textOf(const QWidget *field)
{
    if (const auto *choice = qobject_cast<const QComboBox *>(field))
        return choice->currentText();
    return static_cast<const QLineEdit *>(field)->text();
}

} // namespace

class VxKeyToolsPane::Private
{
public:
    const KeyTool &tool() const { return KeyTool::all()[tools->currentIndex()]; }
    QString settingName(const KeyToolParameter &parameter) const
    {
        return tool().name + QLatin1Char('.') + parameter.name;
    }

    QComboBox *tools = nullptr;
    QWidget *form = nullptr;
    QLabel *description = nullptr;
    QLabel *targets = nullptr;
    QLabel *result = nullptr;
    QScrollArea *area = nullptr;
    QMap<QString, QWidget *> fields; ///< by parameter
    QMap<QString, QString> typed;    ///< by tool and parameter
    QTimer targetsTimer;
    KeyToolPreview preview;
};

VxKeyToolsPane::VxKeyToolsPane()
    : VxPane(tr("Key Tools"))
    , d(std::make_unique<Private>())
{
    d->tools = new QComboBox;
    d->tools->setObjectName(QStringLiteral("tools"));
    for (const KeyTool &tool : KeyTool::all())
        d->tools->addItem(tool.label);
    const auto makeLabel = [](const char *name) {
        auto *label = new QLabel;
        label->setObjectName(QString::fromLatin1(name));
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        return label;
    };
    d->description = makeLabel("description");
    d->targets = makeLabel("targets");
    d->result = makeLabel("result");
    auto *button = new QPushButton(tr("Apply"));
    button->setObjectName(QStringLiteral("apply"));
    // In a small window the fields scroll instead of displacing other panes.
    auto *area = new QScrollArea;
    d->area = area;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    // The fields have the focus, and are scrolled into view by it.
    area->setFocusPolicy(Qt::NoFocus);
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(area);
    auto *contents = new WrappedContents;
    auto *layout = new QVBoxLayout(contents);
    layout->setContentsMargins(6, 6, 6, 6);
    auto *choice = new QHBoxLayout;
    auto *toolLabel = new QLabel(tr("&Tool"));
    toolLabel->setBuddy(d->tools);
    choice->addWidget(toolLabel);
    choice->addWidget(d->tools, 1);
    layout->addLayout(choice);
    layout->addWidget(d->description);
    d->form = new QWidget;
    layout->addWidget(d->form);
    layout->addWidget(d->targets);
    layout->addWidget(button);
    layout->addWidget(d->result);
    layout->addStretch();
    area->setWidget(contents);
    connect(d->tools, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &VxKeyToolsPane::showTool);
    connect(button, &QPushButton::clicked, this, &VxKeyToolsPane::apply);
    // Counting keys needs a pass: once per event loop iteration, and only while the pane is
    // visible.
    d->targetsTimer.setSingleShot(true);
    connect(&d->targetsTimer, &QTimer::timeout, this, &VxKeyToolsPane::showTargets);
    const auto changed = [this] { d->targetsTimer.start(0); };
    if (const VxKeySelection *selection = VxKeySelection::current())
        connect(selection, &VxKeySelection::changed, this, changed);
    if (vxScene) {
        connect(vxScene, &VxScene::nodeSelectionListChanged, this, changed);
        connect(vxScene, &VxScene::playRangeChanged, this, changed);
        connect(vxScene, &VxScene::viewChanged, this, changed);
    }
    connect(&d->preview, &KeyToolPreview::ended, this, [this] {
        d->result->clear();
        showTargets();
    });
    showTool();
}

VxKeyToolsPane::~VxKeyToolsPane() = default;

QString VxKeyToolsPane::getTool() const
{
    return d->tool().name;
}

void VxKeyToolsPane::restoreSettings(VxSettings *settings)
{
    for (const KeyTool &tool : KeyTool::all()) {
        for (const KeyToolParameter &parameter : tool.parameters) {
            const QString name = tool.name + QLatin1Char('.') + parameter.name;
            const QString text = settings->getStringValue(name);
            if (!text.isEmpty())
                d->typed.insert(name, text);
        }
    }
    // The fields show the stored texts; the present ones must not override them.
    d->fields.clear();
    showTool();
    setTool(settings->getStringValue(QStringLiteral("Tool")));
}

void VxKeyToolsPane::saveSettings(VxSettings *settings) const
{
    const_cast<VxKeyToolsPane *>(this)->keepFields();
    for (auto it = d->typed.cbegin(); it != d->typed.cend(); ++it)
        settings->setStringValue(it.key(), it.value());
    settings->setStringValue(QStringLiteral("Tool"), getTool());
}

// An object name is that of the setting.
void VxKeyToolsPane::keepFields()
{
    for (const QWidget *field : qAsConst(d->fields))
        d->typed.insert(field->objectName(), textOf(field));
}

void VxKeyToolsPane::setTool(const QString &name)
{
    const KeyTool *tool = KeyTool::find(name);
    if (!tool)
        return;
    d->tools->setCurrentIndex(int(tool - KeyTool::all().constData()));
    if (tool->parameters.isEmpty())
        return;
    QWidget *first = d->fields.value(tool->parameters.first().name);
    first->setFocus();
    // What is typed replaces the former text.
    if (auto *line = qobject_cast<QLineEdit *>(first))
        line->selectAll();
}

bool VxKeyToolsPane::setField(const QString &parameter, const QString &text)
{
    QWidget *field = d->fields.value(parameter);
    if (auto *choice = qobject_cast<QComboBox *>(field))
        choice->setCurrentText(text);
    else if (auto *line = qobject_cast<QLineEdit *>(field))
        line->setText(text);
    return field != nullptr;
}

void VxKeyToolsPane::showTool()
{
    d->preview.end();
    keepFields();
    d->fields.clear();
    delete d->form->layout();
    qDeleteAll(d->form->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    auto *layout = new QFormLayout(d->form);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setRowWrapPolicy(QFormLayout::WrapAllRows);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    QWidget *previous = d->tools;
    for (const KeyToolParameter &parameter : d->tool().parameters) {
        const QString text = d->typed.value(d->settingName(parameter), parameter.defaultText);
        QWidget *field = nullptr;
        if (parameter.kind == KeyToolParameter::Choice) {
            auto *choice = new QComboBox;
            choice->addItems(parameter.choices);
            choice->setCurrentText(text);
            connect(choice, QOverload<int>::of(&QComboBox::activated), this, [this, choice] {
                preview(choice);
                showTargets();
            });
            field = choice;
        } else {
            auto *line = new QLineEdit(text);
            connect(line, &QLineEdit::textEdited, this, [this, line] { preview(line); });
            field = line;
        }
        field->setObjectName(d->settingName(parameter));
        layout->addRow(parameter.label, field);
        d->fields.insert(parameter.name, field);
        setTabOrder(previous, field);
        previous = field;
    }
    d->description->setText(d->tool().description);
    d->result->clear();
    showTargets();
}

void VxKeyToolsPane::showTargets()
{
    const KeyTool &tool = d->tool();
    d->targets->setText(tr("Works on %1.")
                            .arg(tool.targets ? tool.targets(typedArguments())
                                              : KeyTargets::current().description()));
}

QVariantMap VxKeyToolsPane::typedArguments() const
{
    QVariantMap arguments;
    for (const KeyToolParameter &parameter : d->tool().parameters)
        arguments.insert(parameter.name, textOf(d->fields.value(parameter.name)));
    return arguments;
}

void VxKeyToolsPane::preview(QWidget *field)
{
    if (d->tool().changesKeys)
        d->result->setText(d->preview.show(d->tool(), typedArguments(), field).message);
}

// No field uses Return, neither texts nor choices.
void VxKeyToolsPane::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        apply();
    else
        VxPane::keyPressEvent(event);
}

bool VxKeyToolsPane::apply()
{
    d->preview.end();
    const KeyToolResult result = d->tool().runWith(typedArguments());
    d->result->setText(result.message);
    showTargets();
    // The new text has its place after the layout is activated.
    d->area->widget()->layout()->activate();
    d->area->ensureWidgetVisible(d->result);
    return result.done;
}
