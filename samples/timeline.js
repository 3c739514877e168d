// Drives the whole Timeline pane, and prints what it finds on the way. Run it on the sample:
//
//     vxstudio --headless --script samples/timeline.js samples/walk.vxscene
//
// Everything here is what a user can do by hand, by the pane's slots or by the same actions that
// stand in its menus. What it prints is in timeline.txt.

var pane = App.findPane("VxTimePane");

function run(name) {
    App.action("Vx" + name + "Action").trigger();
    App.processEvents();
}

function select(name) {
    Scene.selectAllNodes(false);
    Scene.setPrimarySelection(Scene.findNode(name));
    App.processEvents(); // the rows follow when there is time
}

function keys(property) {
    return property.getKeyTimes().map(function (time) { return time / Scene.timeStep; }).join(" ");
}

function title(text) {
    print("== " + text);
}

title("What is open");
print(Scene.getNumNodes() + " nodes,", pane.getTotalFrames() + " frames at",
     pane.getFramesPerSecond() + " a second");

title("View modes and the place of the controls");
var modes = ["BasicView", "IntermediateView", "AdvancedView"];
pane.viewModeChanged.connect(function (mode) { print("now in", modes[mode]); });
pane.setViewMode(pane.BasicView);
run("TimePaneIntermediateView");
pane.setViewMode(VxTimePane.AdvancedView);
run("TimePaneControlsTop");
print("controls on top:", pane.getControlsPosition() == pane.ControlsTop,
     App.action("VxTimePaneControlsBottomAction").checked);
run("TimePaneControlsBottom");

title("What the dope sheet lists");
pane.setFilteredPropertyTypes(pane.PropTranslate | pane.PropRotate);
print("types", pane.getFilteredPropertyTypes());
run("TimePaneSetPropertyTypeScale");
print("with scale", pane.getFilteredPropertyTypes());
run("TimePaneSetPropertyTypeScale");

title("Time");
pane.setPlayRangeEnd(48);
pane.setPlayRangeStart(12);
pane.setCurrentFrame(20);
run("NextFrame");
run("NextFrame");
run("PrevFrame");
print("frame", pane.getCurrentFrame(), "of", pane.getPlayRangeStart(), "to",
     pane.getPlayRangeEnd());
run("SkipToPlayrangeEnd");
print("end", pane.getCurrentFrame());
run("SkipToPlayrangeStart");
print("start", pane.getCurrentFrame());
pane.toggleLoop();
print("looping", Scene.looping);
pane.toggleLoop();

title("Making keys");
var marker = Scene.addNode("marker");
var turn = marker.getXRotControl();
select("marker");
run("TimePaneSetKeyScopeNode");
pane.createFilteredKeys();
print("at the current frame:", keys(turn));
pane.setCurrentFrame(24);
turn.setValue(30);
pane.setCurrentFrame(30);
pane.createFilteredKeys(3);
print("and three from frame 30 on:", keys(turn));
print("Scale was not listed:", marker.getXScaleControl().numKeys);
print("Undo names it:", Undo.undoText());

title("Skipping");
run("SkipToPrevKey");
print("previous key", pane.getCurrentFrame());
run("SkipToNextKey");
print("next key", pane.getCurrentFrame());
pane.skipToNextFilteredKey();
print("next key in the dope sheet", pane.getCurrentFrame());

title("Selected keys");
run("TimePaneSelectItemAnimRangeKeys");
print("selected:", pane.hasSelectedKeys());
pane.setInterpType(2);
print("types", turn.getKeys().map(function (key) { return key.type; }).join(" "));
run("TimePaneSetInterpLinear");
run("TimePaneCopySelectedKeys");
print("copied:", pane.hasCopiedKeys());
run("TimePaneDeleteSelectedKeys");
print("deleted:", turn.numKeys, "left");
pane.setCurrentFrame(40);
pane.pasteKeys();
print("pasted at frame 40:", keys(turn));
run("TimePaneDeselectItemAnimRangeKeys");
print("selected:", pane.hasSelectedKeys());

title("Key creation scopes");
select("lHand");
pane.setCurrentFrame(45);
var finger = Scene.findNode("lIndex3").getXRotControl();
var count = finger.numKeys;
pane.setFilteredKeyCreationScope(pane.ScopeNode);
pane.createFilteredKeys();
print("node alone:", finger.numKeys - count, "more on the finger tip");
Undo.undo();
finger.deleteKeys(45 * Scene.timeStep, 45 * Scene.timeStep);
count = finger.numKeys;
pane.setFilteredKeyCreationScope(pane.ScopeNodeRecurse);
pane.createFilteredKeys();
print("with all below:", finger.numKeys - count, "more");
Undo.undo();
pane.setFilteredKeyCreationScope(pane.ScopeNode);

title("Rows");
select("marker");
run("TimePaneMoveRootNodeToTop");
run("TimePaneMoveRootNodeDown");
run("TimePaneExpandAllItems");
run("TimePaneCollapseAllItems");
run("TimePaneRefreshDopesheet");
print("still selected:", pane.hasDopeSheetItemSelection());

title("The key graph");
pane.keyGraphOpenChanged.connect(function (open) { print("graph open:", open); });
pane.setKeyGraphOpen(false);
run("TimePaneKeyGraphToggle");
pane.frameKeyGraph(true);
run("TimePaneFrameGraphKeys");

title("Settings");
pane.monitorParametersPaneChanged.connect(function (on) { print("monitoring:", on); });
pane.playAllFramesChanged.connect(function (on) { print("every frame:", on); });
run("TimePaneMonitorParametersPane");
pane.setMonitorParametersPane(false);
run("TimePanePlayAllFrames");
pane.setPlayAllFrames(false);
print("menu version", pane.getOptionsMenuVersion());

title("Undo");
var steps = Undo.count;
while (Undo.canUndo())
    Undo.undo();
print(steps, "steps undone;", "the key that was set without a hold stays:", keys(turn));
