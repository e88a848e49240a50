// Lets tests see and change what GNOME Shell has on screen. Never installed.
const {Gio} = imports.gi;

const description = `
  <node><interface name="com.quillary.Tests.Evaluate">
    <method name="Evaluate"><arg type="s" direction="in"/><arg type="s" direction="out"/></method>
  </interface></node>`;

// The windows that are shown or minimized, the lowest first. The Shell lists a new one before it shows it, and gives it the
// focus only then.
const windows = () => {
  const actors = global.get_window_actors().filter(actor => actor.visible || actor.meta_window.minimized);
  return global.display.sort_windows_by_stacking(actors.map(actor => actor.meta_window)).filter(window => !window.skip_taskbar);
};

let object;

function init() {}

function enable() {
  object = Gio.DBusExportedObject.wrapJSObject(description, {Evaluate: text => JSON.stringify(eval(text) ?? null)});
  object.export(Gio.DBus.session, '/com/quillary/Tests/Evaluate');
}

function disable() {
  object.unexport();
}
