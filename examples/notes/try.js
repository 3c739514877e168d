// Run by a test: the pane and the action of the example, through the program.
var pane = App.findPane("NotesPane");
pane.addNote("first");
Scene.time = 3 * Scene.timeStep;
App.action("NotesStampAction").trigger();
print(pane.getText().split("\n").join(" | "));
