-- AliasOfTarget
tell application "Test Desk"
    POSIX path of (target of window 2 as alias)
end tell
--> "/home/ann/Downloads/"

-- ApplicationByVariable
set n to "test desk"
name of application n
--> "Test Desk"

-- ById
tell application "Test Desk"
    name of window id 12
end tell
--> "Downloads"

-- ByName
tell application "Test Desk"
    {name of window "downloads", id of window "Start"}
end tell
--> {"Downloads", 11}

-- ByNumber
tell application "Test Desk"
    name of window 2
end tell
--> "Downloads"

-- ByOrdinal
tell application "Test Desk"
    {name of first window, name of last tab of first window, name of front window}
end tell
--> {"Start", "Mail", "Start"}

-- ByVariables
tell application "Test Desk"
    set x to 1
    set y to 2
    {title of tab y of window x, URL of tab y of window x}
end tell
--> {"Mail", "https://mail.example/"}

-- ClassOfObject
tell application "Test Desk"
    {class of window 1, class of window 1 is window, class of every tab of window 1}
end tell
--> {window, true, {tab, tab}}

-- CountOfFilter
tell application "Test Desk"
    number of (every process whose background only is true)
end tell
--> 1

-- CountOfTabsOfWindows
tell application "Test Desk"
    count of tabs of windows
end tell
--> {2, 1}

-- Exists
tell application "Test Desk"
    {exists window 1, exists window 9, exists process "xterm", process "nope" exists}
end tell
--> {true, false, true, false}

-- ExistsApplication
{exists application "Nowhere", exists application "Test Desk"}
--> {false, true}

-- ExistsInClosedApplication
tell application "Closed Desk" to exists window 1
--! -600 Application isn’t running.

-- FileOfRecord
tell application "Test Desk"
    set r to properties of process 1
    POSIX path of file of r
end tell
--> "/usr/bin/xterm"

-- Filter
tell application "Test Desk"
    name of every process whose background only is false
end tell
--> {"xterm", "editor"}

-- FilterByIt
tell application "Test Desk"
    name of every process whose its name is "agent"
end tell
--> {"agent"}

-- FilterByWhere
tell application "Test Desk"
    name of every process where name starts with "e" or background only
end tell
--> {"agent", "editor"}

-- FilterInsideChain
tell application "Test Desk"
    name of every tab of window 1 whose URL contains "mail"
end tell
--> {"Mail"}

-- FirstWhose
tell application "Test Desk"
    name of first process whose background only is true
end tell
--> "agent"

-- ForeignPhraseOutsideTell
set x to background only
--! -2741 Expected end of line but found identifier.

-- It
tell application "Test Desk"
    tell window 2 to name of it
end tell
--> "Downloads"

-- LoopOverObjects
tell application "Test Desk"
    set t to ""
    repeat with w in windows
    set t to t & name of w & linefeed
    end repeat
    t
end tell
--> "Start\nDownloads\n"

-- MiddleAndSome
tell application "Test Desk"
    {name of middle process, name of some window is in {"Start", "Downloads"}}
end tell
--> {"agent", true}

-- MultiWordLabelOfRecord
tell application "Test Desk"
    set r to properties of process 2
    background only of r
end tell
--> true

-- NameOfApplication
name of application "Test Desk"
--> "Test Desk"

-- NameOfClosedApplication
name of application "Closed Desk"
--> "Closed Desk"

-- NameOfEvery
tell application "Test Desk"
    name of every process
end tell
--> {"xterm", "agent", "editor"}

-- NameOfParenthesized
tell application "Test Desk"
    name of (every process)
end tell
--> {"xterm", "agent", "editor"}

-- NoSuchElements
tell application "Test Desk" to get every process of window 1
--! -1728 Can’t get every process of window 1.

-- NoSuchName
tell application "Test Desk" to get process "nope"
--! -1728 Can’t get process "nope".

-- NoSuchProperty
tell application "Test Desk" to get foo of window 1
--! -1728 Can’t get foo of window 1.

-- NoSuchTab
tell application "Test Desk" to get name of tab 9 of window 1
--! -1728 Can’t get tab 9 of window 1.
--app Test Desk

-- NoSuchTabInTell
tell application "Test Desk"
    tell window 2
        tab 5
    end tell
end tell
--! -1728 Can’t get tab 5 of window "Downloads".

-- NoSuchWindow
tell application "Test Desk" to get name of window 3
--! -1728 Can’t get window 3.
--app Test Desk
--@ 36 16

-- NotRunning
tell application "Closed Desk" to get number of windows
--! -600 Application isn’t running.
--app Closed Desk

-- NumberOfElements
tell application "Test Desk"
    {number of windows, count windows, count of every process, number of tabs of window 1}
end tell
--> {2, 2, 3, 2}

-- ObjectsInVariables
tell application "Test Desk"
    set w to window 2
    {name of w, w's name, count tabs of w}
end tell
--> {"Downloads", "Downloads", 1}

-- Plural
tell application "Test Desk"
    name of windows
end tell
--> {"Start", "Downloads"}

-- PluralOfNothing
tell application "Empty Desk" to name of every window
--> {}

-- Properties
tell application "Test Desk"
    properties of process 1
end tell
--> {name:"xterm", background only:false, file:alias "/usr/bin/xterm"}

-- PropertiesCanBeChanged
tell application "Test Desk"
    set r to properties of process 1
    set name of r to "other"
    {name of r, name of process 1}
end tell
--> {"other", "xterm"}

-- PropertiesLeaveOutWhatFails
tell application "Test Desk"
    count of properties of process 1
end tell
--> 3

-- PropertiesOfEvery
tell application "Test Desk"
    set l to get properties of every process where background only is true
    name of item 1 of l
end tell
--> "agent"

-- PropertyFails
tell application "Test Desk" to get icon of process 1
--! -1723 Icons are secret.
--app Test Desk

-- PropertyOfGottenList
tell application "Test Desk" to name of (get every window)
--! -1728 Can’t get name of {window "Start" of application "Test Desk", window "Downloads" of application "Test Desk"}.

-- PropertyOfListOfObjects
tell application "Test Desk"
    set l to every process
    name of l
end tell
--! -1728 Can’t get name of {process "xterm" of application "Test Desk", process "agent" of application "Test Desk", process "editor" of application "Test Desk"}.

-- PropertyThatBeginsWithALanguageWord
tell application "Test Desk" to my card
--> "Ann"

-- Range
tell application "Test Desk"
    name of windows 1 thru 2
end tell
--> {"Start", "Downloads"}

-- Running
{running of application "Test Desk", running of application "Closed Desk"}
--> {true, false}

-- SameObjectIsEqual
tell application "Test Desk"
    {window 1 = window "Start", window 1 = window 2, window 2 is in windows}
end tell
--> {true, false, true}

-- SourceForm
tell application "Test Desk"
    {window 1, tab 2 of window 1, it}
end tell
--> {window "Start" of application "Test Desk", tab "Mail" of application "Test Desk", application "Test Desk"}

-- TabsOfEveryWindow
tell application "Test Desk"
    name of tabs of windows
end tell
--> {{"News", "Mail"}, {"Café"}}

-- TellAppOfProcess
tell app "Test Desk" to tell process "xterm" to get name
--> "xterm"

-- TellInside
tell application "Test Desk"
    tell window 2
    {name, number of tabs, name of tab 1}
    end tell
end tell
--> {"Downloads", 1, "Café"}

-- TellInsideOneLine
tell application "Test Desk"
    tell window 2 to tell tab 1 to get URL
end tell
--> "about:blank"

-- TellNameOfApplication
tell application "Test Desk" to get name
--> "Test Desk"

-- TimedOut
tell application "Slow Desk"
name of every process
end tell
--! -1712 AppleEvent timed out.
--app Slow Desk
--@ 29 21

-- TwoApplications
tell application "Test Desk"
set a to number of windows
tell application "Empty Desk" to set b to number of windows
end tell
{a, b}
--> {2, 0}

-- UnknownApplication
tell application "Nowhere"
1
end tell
--! -1728 Can’t get application "Nowhere".
--@ 5 21

-- VariableInsideTell
tell application "Test Desk"
    set windowName to name of window 1
    windowName
end tell
--> "Start"

-- WordsEndWithTheirTell
tell application "Test Desk" to get name
window 1
--! -2741 Expected end of line but found number.

-- WordsOfUnknownApplication
tell application "Nowhere" to get background only of process 1
--! -2741 Expected end of line but found identifier.
