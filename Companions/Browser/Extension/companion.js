// Tells Gleanery's native messaging host which windows and tabs this profile of the browser has, whenever the host asks. Private
// windows are never told of: the manifest says that the extension doesn't run there.

const api = globalThis.browser ?? globalThis.chrome;

// The form of the messages. The host refuses an extension with another number.
const version = 1;

// In UTF-16 units. Longer titles are cut when they are listed; tabs with longer addresses are not listed, so that the rest of
// such an address is of no use.
const longestTitle = 4096;
const longestAddress = 65537;

// About the length of the texts in one message. A browser ends a host that it sends more than some megabytes at once.
const messageSize = 256 * 1024;

const firstDelay = 1000;
const longestDelay = 64 * 1000;

// The ids of the windows, the one that was used last first, as far as they were used while this script runs.
let used = [];
let port = null;
let delay = firstDelay;

// As one line.
function text(given, longest) {
    return (given ?? '').slice(0, longest).replace(/[\0-\x1f]/g, ' ');
}

// A tab as three lines: letters for what it is, its title, its address. One text for all tabs of a window costs everybody much
// less than an object for each.
function describe(tab) {
    const state = (tab.active ? 'a' : '') + (tab.pinned ? 'p' : '') + (tab.status === 'loading' ? 'l' : '');
    return `${state}\n${text(tab.title, longestTitle)}\n${text(tab.url || tab.pendingUrl, longestAddress)}\n`;
}

// Adds the window that was used last before this script began, if there is one that is not private.
const begun = api.windows.getLastFocused().then(({id}) => used.push(id), () => {});

// The windows, the one that was used last first.
async function openWindows() {
    const all = {populate: true, windowTypes: ['normal', 'popup']};
    await begun;
    const windows = await api.windows.getAll(all);
    const place = window => used.includes(window.id) ? used.indexOf(window.id) : used.length;
    return windows.filter(window => !window.incognito).sort((a, b) => place(a) - place(b) || a.id - b.id);
}

// Sends the windows in messages of bearable length. A window may be divided; its parts have the same id.
async function answer(number) {
    let parts = [];
    let size = 0;
    const send = isLast => {
        port?.postMessage({answer: number, windows: parts, isLast});
        parts = [];
        size = 0;
    };
    for (const {id, type, focused, tabs} of await openWindows()) {
        parts.push({id, type, focused, tabs: ''});
        for (const tab of tabs.filter(tab => !tab.hidden && !tab.incognito)) {
            const lines = describe(tab);
            parts.at(-1).tabs += lines;
            size += lines.length;
            if (size < messageSize)
                continue;
            send(false);
            parts.push({id, type, focused, tabs: ''});
        }
    }
    send(true);
}

async function receive(message) {
    if (message.refused !== undefined) {
        console.error(message.refused);
        delay = Infinity;
        return;
    }
    delay = firstDelay;
    try {
        await answer(message.list);
    } catch (error) {
        port?.postMessage({answer: message.list, failed: text(String(error), longestTitle)});
    }
}

// Without a host the next attempt is made later, and later each time; after a minute, only when a tab is opened.
function disconnected() {
    port = null;
    if (delay > longestDelay)
        return;
    setTimeout(connect, delay);
    delay *= 2;
}

function connect() {
    if (port !== null || delay === Infinity)
        return;
    port = api.runtime.connectNative('com.quillary.gleanery.tabs');
    port.onMessage.addListener(receive);
    port.onDisconnect.addListener(disconnected);
    port.postMessage({version});
}

api.windows.onFocusChanged.addListener(id => {
    if (id !== api.windows.WINDOW_ID_NONE)
        used = [id, ...used.filter(other => other !== id)];
});
api.windows.onRemoved.addListener(id => {
    used = used.filter(other => other !== id);
});
// These start a service worker, which connects when it runs.
api.runtime.onStartup.addListener(connect);
api.runtime.onInstalled.addListener(connect);
api.tabs.onCreated.addListener(connect);
connect();
