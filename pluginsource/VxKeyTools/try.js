// Run by a test: two tools of the module, through the program.
var node = Scene.addNode("node");
var channel = node.getXPosControl();
channel.setKeys([{ time: 0, value: 1 }, { time: 480, value: 2 }, { time: 960, value: 3 }]);
node.select();
var stretched = KeyTools.retime({ end: "200%" });
print(stretched.done, channel.getKeyTimes(), KeyTools.move({ by: 0 }).message);
