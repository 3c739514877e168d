#include "monkeyscripts.h"

#include <QVector>

namespace {

// Each is a program in which %1 to %3 are numbers from 0 to 9999. "any(list)" picks by %1.
const char *const programs[] = {
    "Scene.addNode('node%2', any(Scene.getNodes()))",
    "Scene.addBone('bone%2', any(Scene.getNodes()))",
    "Scene.addSkeleton('figure%2')",
    "if (Scene.getNodes().length > 150) Scene.removeNode(any(Scene.getNodes()))",
    "if (Scene.getNodes().length > 40) Scene.removeNode(any(Scene.getRootNodes()))",
    "any(Scene.getNodes()).setParent(any(Scene.getRootNodes()), -1, %3 % 2 == 0)",
    "any(Scene.getNodes()).setParent(null)",
    "any(Scene.getNodes()).select(%3 % 3 != 0)",
    "any(Scene.getNodes()).visible = %3 % 2 == 0",
    "Scene.selectAllNodes(%3 % 2 == 0)",
    "any(Scene.getNodes()).label = 'renamed %2'",
    "any(Scene.getNodes()).addFloatProperty('value%2', '/Group/Sub')",
    "any(Scene.getNodes()).addObject('object%2')",
    "prop().setKey(%2, %3 - 5000, %3 % 3)",
    "prop().setKeys([{time: %2, value: 1}, {time: %3, value: 2, type: 2}, {time: 0, value: 3}])",
    "prop().deleteKeys(%2, %2 + %3)",
    "prop().deleteAllKeys()",
    "prop().moveKeys([0, 1], [%2, %3])",
    "prop().setLink(prop(), %3 % 2 == 0, 0.5, 1)",
    "prop().setLink(null)",
    "prop().setAlias(prop())",
    "prop().setAlias(null)",
    "Scene.time = %2",
    "Scene.timeStep = 1 + %2 % 400",
    "Scene.setPlayTicks(%2, %2 + %3)",
    "Scene.setAnimTicks(0, %2 + %3)",
    "Scene.play(%3 % 2 == 0)",
    "Scene.pause()",
    "Scene.stepTime(%2 % 10, %3 % 2 == 0)",
    "Undo.beginHold(); prop().setKey(%2, 1); Undo.acceptHold('Script')",
    "Undo.undo()",
    "Undo.redo()",
    "pane('setViewMode', %2 % 3)",
    "pane('setControlsPosition', %2 % 2)",
    "pane('setKeyGraphOpen', %2 % 2 == 0)",
    "pane('setFilteredPropertyTypes', %2 % 64)",
    "pane('setTotalFrames', %2)",
    "pane('setFramesPerSecond', %2 % 240)",
    "pane('refreshDopesheet')",
    "pane('expandAll')",
    "pane('frameKeyGraph')",
    "pane('createKeys')",
    "pane('copySelectedKeys'); pane('pasteKeys')",
};

const char prelude[] =
    "function any(list) { return list.length ? list[%1 % list.length] : null; }\n"
    "function prop() { var node = any(Scene.getNodes()); return any(node.getProperties()); }\n"
    "function pane(slot, value) { var p = App.findPane('VxTimePane');"
    " return value === undefined ? p[slot]() : p[slot](value); }\n";

} // namespace

QString monkeyScript(MonkeyRandom *random)
{
    const int count = int(sizeof programs / sizeof *programs);
    QString program =
        QString::fromLatin1(prelude) + QString::fromLatin1(programs[random->below(count)]);
    for (const char *number : {"%1", "%2", "%3"})
        program.replace(QLatin1String(number), QString::number(random->below(10000)));
    return program;
}
