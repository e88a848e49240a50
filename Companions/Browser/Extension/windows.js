// Which windows and tabs are open in this profile. The tabs are remembered, since a browser takes 40 ms to tell a thousand of them,
// and events keep them as they are. Private windows are never told of: the manifest says that the extension doesn't run there.

const api = globalThis.browser ?? globalThis.chrome;

// In UTF-16 units. Longer titles are cut when they are listed; tabs with longer addresses are not listed, so that the rest of
// such an address is of no use.
const longestTitle = 4096;
const longestAddress = 65537;

const windowTypes = ['normal', 'popup'];

// The ids of the windows, the one that was used last first, as far as they were used while this script runs.
let used = [];

// The tabs of each window, by its id; null if they have to be asked for.
let known = null;

// As one line.
function line(given, longest) {
    return (given ?? '').slice(0, longest).replace(/[\0-\x1f]/g, ' ');
}

// A tab with its three lines, but for the letter of the active one: letters for what it is, its title, its address. One text for
// all tabs of a window costs everybody much less than an object for each.
function remembered({id, active, hidden, incognito, pinned, status, title, url, pendingUrl}) {
    const state = (pinned ? 'p' : '') + (status === 'loading' ? 'l' : '');
    const lines = `${state}\n${line(title, longestTitle)}\n${line(url || pendingUrl, longestAddress)}\n`;
    // Nothing tells that another page is awaited in a tab that has none yet.
    return {id, active, lines, isListed: !hidden && !incognito, isCertain: Boolean(url)};
}

// Adds the window that was used last before this script began, if there is one that is not private.
const begun = api.windows.getLastFocused().then(({id}) => used.push(id), () => {});

async function askForTabs() {
    const windows = await api.windows.getAll({populate: true, windowTypes});
    known = new Map(windows.map(({id, tabs}) => [id, tabs.map(remembered)]));
    return windows;
}

function isKnown({id}) {
    return known?.get(id)?.every(tab => tab.isCertain) ?? false;
}

// The windows, the one that was used last first, each with the lines of its tabs.
async function openWindows() {
    await begun;
    // The answer comes after the events of all that has happened before it.
    let windows = await api.windows.getAll({windowTypes});
    if (!windows.every(isKnown))
        windows = await askForTabs();
    const place = ({id}) => used.includes(id) ? used.indexOf(id) : used.length;
    return windows.filter(({incognito}) => !incognito)
        .sort((a, b) => place(a) - place(b) || a.id - b.id)
        .map(({id, type, focused}) => ({
            id, type, focused,
            tabs: known.get(id).filter(tab => tab.isListed).map(tab => (tab.active ? 'a' : '') + tab.lines)
        }));
}

function forget() {
    known = null;
}

api.tabs.onUpdated.addListener((id, change, tab) => {
    const tabs = known?.get(tab.windowId);
    const place = tabs?.findIndex(other => other.id === id);
    if (place >= 0)
        tabs[place] = remembered(tab);
    else if (tabs)
        forget();
});
api.tabs.onCreated.addListener(tab => {
    const tabs = known?.get(tab.windowId);
    if (tabs && tab.index <= tabs.length)
        tabs.splice(tab.index, 0, remembered(tab));
    else if (tabs)
        forget();
});
api.tabs.onRemoved.addListener((id, {windowId}) => {
    if (known?.has(windowId))
        known.set(windowId, known.get(windowId).filter(tab => tab.id !== id));
});
api.tabs.onActivated.addListener(({tabId, windowId}) => {
    for (const tab of known?.get(windowId) ?? [])
        tab.active = tab.id === tabId;
});
for (const event of [api.tabs.onMoved, api.tabs.onAttached, api.tabs.onDetached, api.tabs.onReplaced])
    event.addListener(forget);

api.windows.onFocusChanged.addListener(id => {
    if (id !== api.windows.WINDOW_ID_NONE)
        used = [id, ...used.filter(other => other !== id)];
});
api.windows.onRemoved.addListener(id => {
    used = used.filter(other => other !== id);
    known?.delete(id);
});
