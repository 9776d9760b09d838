import Gio from 'gi://Gio';
import GLib from 'gi://GLib';
import Meta from 'gi://Meta';
import Shell from 'gi://Shell';

const OUR_NAME = 'example.brisklog.Brisklog';
const PATH = '/example/brisklog/Frontmost';
const INTERFACE = 'example.brisklog.Frontmost';
const DESCRIPTION = `<node><interface name="${INTERFACE}">
<method name="Follow"><arg type="a(ssu)" direction="out"/></method>
<method name="Leave"/>
<signal name="Changed"><arg type="a(ssu)"/></signal>
</interface></node>`;

/** Tells Brisklog, and nobody else, which window is in front, and which one behind it: desktop id, name, process. */
export default class FrontmostWindow {
    enable() {
        this._tracker = Shell.WindowTracker.get_default();
        this._object = Gio.DBusExportedObject.wrapJSObject(DESCRIPTION, this);
        this._object.export(Gio.DBus.session, PATH);
        this._nameWatch = Gio.bus_watch_name(Gio.BusType.SESSION, OUR_NAME, Gio.BusNameWatcherFlags.NONE,
            (_bus, _name, owner) => { this._owner = owner; }, () => { this._owner = null; this._leave(); });
    }

    disable() {
        this._leave();
        Gio.bus_unwatch_name(this._nameWatch);
        this._object.unexport();
        this._object = this._tracker = this._owner = null;
    }

    FollowAsync(_parameters, invocation) {
        this._answer(invocation, () => {
            this._focus ??= global.display.connect('notify::focus-window', () => this._tell());
            return this._windows();
        });
    }

    LeaveAsync(_parameters, invocation) {
        this._answer(invocation, () => this._leave());
    }

    _answer(invocation, act) {
        if (this._owner && invocation.get_sender() === this._owner)
            invocation.return_value(act() ?? null);
        else
            invocation.return_dbus_error('org.freedesktop.DBus.Error.AccessDenied', 'This is for Brisklog alone.');
    }

    _leave() {
        if (this._focus)
            global.display.disconnect(this._focus);
        this._focus = null;
    }

    _tell() {
        Gio.DBus.session.emit_signal(this._owner, PATH, INTERFACE, 'Changed', this._windows());
    }

    _windows() {
        // Not the tracker's focused application: windows that are kept out of the task bar, as ours is, have none.
        const front = global.display.focus_window;
        const isWindow = front && front.get_window_type() !== Meta.WindowType.DESKTOP;
        const workspace = global.workspace_manager.get_active_workspace();
        const behind = isWindow && global.display.get_tab_list(Meta.TabList.NORMAL, workspace)
            .find(window => window.get_pid() !== front.get_pid() && !window.minimized);
        const windows = isWindow ? [front, behind].filter(window => window) : [];
        return new GLib.Variant('(a(ssu))', [windows.map(window => this._describe(window))]);
    }

    _describe(window) {
        const app = this._tracker.get_window_app(window);
        const id = app && !app.is_window_backed() ? app.get_id().replace(/\.desktop$/, '') : '';
        return [id, app?.get_name() ?? '', Math.max(window.get_pid(), 0)];
    }
}
