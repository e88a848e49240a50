// Lets tests see and change what GNOME Shell has on screen. Never installed.
const {Gio, Shell} = imports.gi;

const description = `
  <node><interface name="com.quillary.Tests.Evaluate">
    <method name="Evaluate"><arg type="s" direction="in"/><arg type="s" direction="out"/></method>
  </interface></node>`;

/* exported windows, tracker */
const windows = () => global.get_window_actors().map(actor => actor.meta_window);
const tracker = Shell.WindowTracker.get_default();

let object;

/* exported init, enable, disable */
function init() {}

function enable() {
  object = Gio.DBusExportedObject.wrapJSObject(description, {Evaluate: text => JSON.stringify(eval(text)) ?? ''});
  object.export(Gio.DBus.session, '/com/quillary/Tests/Evaluate');
}

function disable() {
  object.unexport();
}
