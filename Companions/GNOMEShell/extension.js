/* exported init */

// GNOME Shell 43 and 44 run this file as a script and call init. Later ones import it as a module and make an object of its
// default export. So it uses only what both have, and its last line is a comment to a script.

const {Gio, GLib, Shell} = imports.gi;

const path = '/com/quillary/Gleanery/Windows';

const description = `
<node>
  <interface name="com.quillary.Gleanery.Windows">
    <method name="List">
      <arg type="u" name="version" direction="out"/>
      <arg type="aa{sv}" name="windows" direction="out"/>
    </method>
  </interface>
</node>`;

// Another number says that a property means something else than before. A further property changes nothing for a reader that
// doesn't know it.
const version = 1;

// The id of the application's desktop entry; undefined if the Shell knows none.
function desktopEntryOf(window) {
    const app = Shell.WindowTracker.get_default().get_window_app(window);
    return app && !app.is_window_backed() ? app.get_id() : undefined;
}

// A window's properties as a dictionary in GVariant's text form, which writes texts as JSON does. What the window does not say is
// left out.
function describe(window) {
    const properties = [
        ['id', 'uint32', window.get_stable_sequence()],
        ['title', 'string', window.get_title()],
        ['pid', 'int32', window.get_pid()],
        ['desktop-entry', 'string', desktopEntryOf(window)],
        ['sandboxed-app-id', 'string', window.get_sandboxed_app_id()],
        ['wm-class', 'string', window.get_wm_class()],
        ['wm-class-instance', 'string', window.get_wm_class_instance()],
        ['gtk-unique-bus-name', 'string', window.get_gtk_unique_bus_name()],
        ['gtk-window-object-path', 'string', window.get_gtk_window_object_path()],
        ['transient-for', 'uint32', window.get_transient_for()?.get_stable_sequence()],
        ['type', 'uint32', window.get_window_type()],
        ['skip-taskbar', 'boolean', window.is_skip_taskbar()],
        ['minimized', 'boolean', window.minimized],
        ['focus', 'boolean', window.has_focus()],
    ];
    const told = properties.filter(([, , value]) => value !== null && value !== undefined);
    return `{${told.map(([name, type, value]) => `'${name}': <${type} ${JSON.stringify(value)}>`).join()}}`;
}

// Lists the windows for whoever calls com.quillary.Gleanery.Windows.List on the session bus.
class WindowLister {
    enable() {
        this._object = Gio.DBusExportedObject.wrapJSObject(description, this);
        this._object.export(Gio.DBus.session, path);
    }

    disable() {
        this._object.unexport();
        this._object = null;
    }

    // The windows in stacking order, the lowest first. The ids are in the order in which the windows first appeared. GLib makes
    // the answer from one text, which takes half the time that an object for each property would.
    List() {
        const windows = global.display.list_all_windows().filter(window => !window.is_override_redirect());
        const list = global.display.sort_windows_by_stacking(windows).map(describe).join();
        return GLib.Variant.parse(new GLib.VariantType('(uaa{sv})'), `(${version}, [${list}])`, null, null);
    }
}

function init() {
    return new WindowLister();
}

let number = 0;
// To a module, this line compares the number with !--number, which has no effect, and then exports the class.
number <!--number; export default WindowLister;
