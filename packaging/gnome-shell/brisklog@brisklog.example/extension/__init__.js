/* exported init */
// GNOME up to 44 looks for this folder before the file extension.js beside it, which newer ones take.

const {extensionUtils} = imports.misc;

class ModuleLoader {
    constructor(folder) {
        this._module = import(folder.get_child('extension.js').get_uri());
    }

    enable() {
        this._isOn = true;
        this._module.then(module => {
            if (this._isOn) {
                this._extension ??= new module.default();
                this._extension.enable();
                this._isEnabled = true;
            }
        }).catch(logError);
    }

    disable() {
        this._isOn = false;
        if (this._isEnabled)
            this._extension.disable();
        this._isEnabled = false;
    }
}

function init() {
    return new ModuleLoader(extensionUtils.getCurrentExtension().dir);
}
