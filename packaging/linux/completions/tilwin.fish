# Made from the table of commands; edit that.
function __tilwin_after
    set -l words (commandline -opc)
    test "$words[2..]" = "$argv"
end
complete -c tilwin -f
complete -c tilwin -n '__tilwin_after' -a 'snap area layout place windows displays actions areas doctor get set watch settings quit help version'
complete -c tilwin -n '__tilwin_after layout' -a 'list apply save delete'
complete -c tilwin -n '__tilwin_after snap' -a 'leftHalf rightHalf topHalf bottomHalf topLeft topRight bottomLeft bottomRight leftThird centerThird rightThird leftTwoThirds rightTwoThirds topLeftSixth topCenterSixth topRightSixth bottomLeftSixth bottomCenterSixth bottomRightSixth firstFourth secondFourth thirdFourth lastFourth leftThreeFourths rightThreeFourths maximize almostMaximize center centerLarge maximizeHeight maximizeWidth larger smaller restore nextDisplay previousDisplay'
complete -c tilwin -n '__tilwin_after area' -a '(tilwin areas 2>/dev/null)'
complete -c tilwin -n '__tilwin_after layout list' -a '--json'
complete -c tilwin -n '__tilwin_after layout apply' -a '(tilwin layout list 2>/dev/null)'
complete -c tilwin -n '__tilwin_after layout delete' -a '(tilwin layout list 2>/dev/null)'
complete -c tilwin -n '__tilwin_after windows' -a '--json'
complete -c tilwin -n '__tilwin_after displays' -a '--json'
complete -c tilwin -n '__tilwin_after actions' -a '--json'
complete -c tilwin -n '__tilwin_after areas' -a '--json'
complete -c tilwin -n '__tilwin_after doctor' -a '--names'
complete -c tilwin -n '__tilwin_after get' -a 'gap outer cycleWidths dragToSnap shadowRecording showMenuBarIcon restoreOnDisplayChange ignoredApps shortcut.leftHalf shortcut.rightHalf shortcut.topHalf shortcut.bottomHalf shortcut.topLeft shortcut.topRight shortcut.bottomLeft shortcut.bottomRight shortcut.leftThird shortcut.centerThird shortcut.rightThird shortcut.leftTwoThirds shortcut.rightTwoThirds shortcut.topLeftSixth shortcut.topCenterSixth shortcut.topRightSixth shortcut.bottomLeftSixth shortcut.bottomCenterSixth shortcut.bottomRightSixth shortcut.firstFourth shortcut.secondFourth shortcut.thirdFourth shortcut.lastFourth shortcut.leftThreeFourths shortcut.rightThreeFourths shortcut.maximize shortcut.almostMaximize shortcut.center shortcut.centerLarge shortcut.maximizeHeight shortcut.maximizeWidth shortcut.larger shortcut.smaller shortcut.restore shortcut.nextDisplay shortcut.previousDisplay --json'
complete -c tilwin -n '__tilwin_after set' -a 'gap outer cycleWidths dragToSnap shadowRecording showMenuBarIcon restoreOnDisplayChange ignoredApps shortcut.leftHalf shortcut.rightHalf shortcut.topHalf shortcut.bottomHalf shortcut.topLeft shortcut.topRight shortcut.bottomLeft shortcut.bottomRight shortcut.leftThird shortcut.centerThird shortcut.rightThird shortcut.leftTwoThirds shortcut.rightTwoThirds shortcut.topLeftSixth shortcut.topCenterSixth shortcut.topRightSixth shortcut.bottomLeftSixth shortcut.bottomCenterSixth shortcut.bottomRightSixth shortcut.firstFourth shortcut.secondFourth shortcut.thirdFourth shortcut.lastFourth shortcut.leftThreeFourths shortcut.rightThreeFourths shortcut.maximize shortcut.almostMaximize shortcut.center shortcut.centerLarge shortcut.maximizeHeight shortcut.maximizeWidth shortcut.larger shortcut.smaller shortcut.restore shortcut.nextDisplay shortcut.previousDisplay'
complete -c tilwin -n '__tilwin_after help' -a 'snap area layout place windows displays actions areas doctor get set watch settings quit help version'
