# Enums of TRL_OBKR_MOX. Generated from TRL_OBKR_MOX.idl; do not edit.
from enum import IntEnum

class DrawModeConstants(IntEnum):
    """How drawn colours mix with those below, a raster operation"""
    vbBlackness = 1
    """Black"""
    vbNotMergePen = 2
    """Inverse of vbMergePen"""
    vbMaskNotPen = 3
    """Bits common to the screen and the inverse of the pen"""
    vbNotCopyPen = 4
    """Inverse of the pen"""
    vbMaskPenNot = 5
    """Bits common to the pen and the inverse of the screen"""
    vbInvert = 6
    """Inverse of the screen"""
    vbXorPen = 7
    """Bits of pen or screen, but not of both"""
    vbNotMaskPen = 8
    """Inverse of vbMaskPen"""
    vbMaskPen = 9
    """Bits common to pen and screen"""
    vbNotXorPen = 10
    """Inverse of vbXorPen"""
    vbNop = 11
    """The screen stays as it is"""
    vbMergeNotPen = 12
    """Bits of the screen or the inverse of the pen"""
    vbCopyPen = 13
    """The pen alone, the usual mode"""
    vbMergePenNot = 14
    """Bits of the pen or the inverse of the screen"""
    vbMergePen = 15
    """Bits of pen or screen"""
    vbWhiteness = 16
    """White"""

class DrawStyleConstants(IntEnum):
    """Style of drawn lines"""
    vbSolid = 0
    """Unbroken"""
    vbDash = 1
    """Dashes"""
    vbDot = 2
    """Dots"""
    vbDashDot = 3
    """Dash and dot"""
    vbDashDotDot = 4
    """Dash and two dots"""
    vbInvisible = 5
    """No line"""
    vbInsideSolid = 6
    """Unbroken, inside the edge of a closed figure"""

class KeyCodeConstants(IntEnum):
    """Keys of the keyboard, by their virtual key codes"""
    vbKeyLButton = 1
    """Left mouse button"""
    vbKeyRButton = 2
    """Right mouse button"""
    vbKeyCancel = 3
    """Cancel, Ctrl and Break"""
    vbKeyMButton = 4
    """Middle mouse button"""
    vbKeyBack = 8
    """Backspace"""
    vbKeyTab = 9
    """Tab"""
    vbKeyClear = 12
    """Clear, 5 of the number pad without Num Lock"""
    vbKeyReturn = 13
    """Return"""
    vbKeyShift = 16
    """Shift"""
    vbKeyControl = 17
    """Ctrl"""
    vbKeyMenu = 18
    """Alt"""
    vbKeyPause = 19
    """Pause"""
    vbKeyCapital = 20
    """Caps Lock"""
    vbKeyEscape = 27
    """Escape"""
    vbKeySpace = 32
    """Space bar"""
    vbKeyPageUp = 33
    """Page up"""
    vbKeyPageDown = 34
    """Page down"""
    vbKeyEnd = 35
    """End"""
    vbKeyHome = 36
    """Home"""
    vbKeyLeft = 37
    """Left arrow"""
    vbKeyUp = 38
    """Up arrow"""
    vbKeyRight = 39
    """Right arrow"""
    vbKeyDown = 40
    """Down arrow"""
    vbKeySelect = 41
    """Select"""
    vbKeyPrint = 42
    """Print"""
    vbKeyExecute = 43
    """Execute"""
    vbKeySnapshot = 44
    """Print Screen"""
    vbKeyInsert = 45
    """Insert"""
    vbKeyDelete = 46
    """Delete"""
    vbKeyHelp = 47
    """Help"""
    vbKey0 = 48
    """Digit 0 above the letters"""
    vbKey1 = 49
    """Digit 1 above the letters"""
    vbKey2 = 50
    """Digit 2 above the letters"""
    vbKey3 = 51
    """Digit 3 above the letters"""
    vbKey4 = 52
    """Digit 4 above the letters"""
    vbKey5 = 53
    """Digit 5 above the letters"""
    vbKey6 = 54
    """Digit 6 above the letters"""
    vbKey7 = 55
    """Digit 7 above the letters"""
    vbKey8 = 56
    """Digit 8 above the letters"""
    vbKey9 = 57
    """Digit 9 above the letters"""
    vbKeyA = 65
    """Letter A"""
    vbKeyB = 66
    """Letter B"""
    vbKeyC = 67
    """Letter C"""
    vbKeyD = 68
    """Letter D"""
    vbKeyE = 69
    """Letter E"""
    vbKeyF = 70
    """Letter F"""
    vbKeyG = 71
    """Letter G"""
    vbKeyH = 72
    """Letter H"""
    vbKeyI = 73
    """Letter I"""
    vbKeyJ = 74
    """Letter J"""
    vbKeyK = 75
    """Letter K"""
    vbKeyL = 76
    """Letter L"""
    vbKeyM = 77
    """Letter M"""
    vbKeyN = 78
    """Letter N"""
    vbKeyO = 79
    """Letter O"""
    vbKeyP = 80
    """Letter P"""
    vbKeyQ = 81
    """Letter Q"""
    vbKeyR = 82
    """Letter R"""
    vbKeyS = 83
    """Letter S"""
    vbKeyT = 84
    """Letter T"""
    vbKeyU = 85
    """Letter U"""
    vbKeyV = 86
    """Letter V"""
    vbKeyW = 87
    """Letter W"""
    vbKeyX = 88
    """Letter X"""
    vbKeyY = 89
    """Letter Y"""
    vbKeyZ = 90
    """Letter Z"""
    vbKeyNumpad0 = 96
    """0 of the number pad"""
    vbKeyNumpad1 = 97
    """1 of the number pad"""
    vbKeyNumpad2 = 98
    """2 of the number pad"""
    vbKeyNumpad3 = 99
    """3 of the number pad"""
    vbKeyNumpad4 = 100
    """4 of the number pad"""
    vbKeyNumpad5 = 101
    """5 of the number pad"""
    vbKeyNumpad6 = 102
    """6 of the number pad"""
    vbKeyNumpad7 = 103
    """7 of the number pad"""
    vbKeyNumpad8 = 104
    """8 of the number pad"""
    vbKeyNumpad9 = 105
    """9 of the number pad"""
    vbKeyMultiply = 106
    """* of the number pad"""
    vbKeyAdd = 107
    """+ of the number pad"""
    vbKeySeparator = 108
    """Separator of the number pad"""
    vbKeySubtract = 109
    """- of the number pad"""
    vbKeyDecimal = 110
    """Decimal point of the number pad"""
    vbKeyDivide = 111
    """/ of the number pad"""
    vbKeyF1 = 112
    """Function key 1"""
    vbKeyF2 = 113
    """Function key 2"""
    vbKeyF3 = 114
    """Function key 3"""
    vbKeyF4 = 115
    """Function key 4"""
    vbKeyF5 = 116
    """Function key 5"""
    vbKeyF6 = 117
    """Function key 6"""
    vbKeyF7 = 118
    """Function key 7"""
    vbKeyF8 = 119
    """Function key 8"""
    vbKeyF9 = 120
    """Function key 9"""
    vbKeyF10 = 121
    """Function key 10"""
    vbKeyF11 = 122
    """Function key 11"""
    vbKeyF12 = 123
    """Function key 12"""
    vbKeyF13 = 124
    """Function key 13"""
    vbKeyF14 = 125
    """Function key 14"""
    vbKeyF15 = 126
    """Function key 15"""
    vbKeyF16 = 127
    """Function key 16"""
    vbKeyNumlock = 144
    """Num Lock"""
    vbKeyScrollLock = 145
    """Scroll Lock"""

class MOX_EXTENSION_INFO(IntEnum):
    """Facts about the running library for moxHub.ExtensionInfo"""
    moxext_ProcessID = 0
    """Long: identifier of the process that the library is loaded in"""
    moxext_ThreadID = 1
    """Long: identifier of the thread of the calling apartment"""
    moxext_UsedByApp = 10
    """String: program that uses the library, with its path where the process can be opened, else the bare name"""
    moxext_VersionMajor = 20
    """Long: major part of the library's version, 8"""
    moxext_VersionMinor = 21
    """Long: minor part of the library's version, 10"""
    moxext_VersionRevision = 22
    """Long: revision part of the library's version, 100"""
    moxext_VersionString = 25
    """String: all three parts padded to 1, 2 and 4 digits, such as 8.10.0100"""

class MOX_SCALEUNIT(IntEnum):
    """Units of measure outside printing; the numbers agree with PRN_UNIT, and 4 is not used"""
    suTWIP = 1
    """Twips: 1440 to the inch"""
    suPOINTS = 2
    """Points: 72 to the inch, 20 twips each"""
    suPIXEL = 3
    """Pixels of the screen, converted with the mean of its two twips per pixel"""
    suINCH = 5
    """Inches: 1440 twips each"""
    suMM = 6
    """Millimetres: 56.7 twips each"""
    suCM = 7
    """Centimetres: 567 twips each"""

class PRN_ORIENTATION(IntEnum):
    """How the text runs on the sheet"""
    PRNOT_PORTRAIT = 1
    """Upright: the short edge on top"""
    PRNOT_LANDSCAPE = 2
    """Turned: the long edge on top"""

class PRN_LANDSCAPEORIENT(IntEnum):
    """Which way a printer turns the page for landscape"""
    PRNLO_LandscapeNotSupported = 0
    """No landscape, or the printer does not tell"""
    PRNLO_LandscapeOrient90 = 1
    """Turned by 90 degrees"""
    PRNLO_LandscapeOrient270 = 2
    """Turned by 270 degrees"""

class PRN_DUPLEX(IntEnum):
    """Printing on both sides; the number goes to the driver unchanged"""
    PRNDP_SIMPLE = 1
    """One side only"""
    PRNDP_HORIZONTAL = 2
    """Both sides, the driver's mode 2, bound at the long edge"""
    PRNDP_VERTICAL = 3
    """Both sides, the driver's mode 3, bound at the short edge"""

class PRN_COLORMODE(IntEnum):
    """Colour or grey output"""
    PRNCM_MONOCHROME = 1
    """Black and white"""
    PRNCM_COLOUR = 2
    """Colour"""

class PRN_CLIPPINGSUPPORT(IntEnum):
    """How well the device clips output to a region"""
    PRNCM_NONE = 0
    """No clipping, or the device does not tell"""
    PRNCM_SIMPLE = 1
    """Clips to rectangles"""
    PRNCM_EXTENDED = 2
    """Clips to any region"""

class PRN_UNIT(IntEnum):
    """Units of measure of a printer; the numbers agree with MOX_SCALEUNIT, and 4 is not used"""
    PRNUN_TWIP = 1
    """Twips: 1440 to the inch"""
    PRNUN_POINT = 2
    """Points: 72 to the inch"""
    PRNUN_PIXEL = 3
    """Pixels of the device"""
    PRNUN_INCH = 5
    """Inches"""
    PRNUN_MM = 6
    """Millimetres"""
    PRNUN_CM = 7
    """Centimetres"""

class PRN_BACKSTYLE(IntEnum):
    """Whether a background or a fill is painted"""
    PRNBS_TRANSPARENT = 0
    """Not painted"""
    PRNBS_OPAQUE = 1
    """Painted in its colour"""

class PRN_JOBSTATUS(IntEnum):
    """Where a print job stands in its queue"""
    PRNJS_NONE = 0
    """Unknown: no such job, no single state, or the job has left the queue"""
    PRNJS_SPOOLING = 10
    """Being written to the spool"""
    PRNJS_PRINTING = 11
    """On its way to the device"""
    PRNJS_PRINTED = 12
    """Completely sent"""
    PRNJS_PAUSED = 20
    """Held back"""
    PRNJS_RESTART = 21
    """Started again from its beginning"""
    PRNJS_DELETING = 30
    """Being removed"""
    PRNJS_DELETED = 31
    """Removed"""
    PRNJS_ERROR = 100
    """In error"""
    PRNJS_BLOCKED = 101
    """The driver cannot print it"""
    PRNJS_OFFLINE = 102
    """The device is offline"""
    PRNJS_PAPEROUT = 103
    """The device is out of paper"""
    PRNJS_USER_INTERVENTION = 104
    """The device waits for somebody"""

class moX_DRAW_SYSCOLOR(IntEnum):
    """Colours of the system, of its visual style and of the task pane that the style draws"""
    dsc_Scrollbar = 1601
    """Grey area of scroll bars"""
    dsc_Background = 1602
    """Desktop"""
    dsc_ActiveCaption = 1603
    """Caption of the active window"""
    dsc_InActiveCaption = 1604
    """Caption of inactive windows"""
    dsc_Menu = 1605
    """Background of menus"""
    dsc_Window = 1606
    """Background of windows"""
    dsc_WindowFrame = 1607
    """Frame of windows"""
    dsc_MenuText = 1608
    """Text in menus"""
    dsc_WindowText = 1609
    """Text in windows"""
    dsc_CaptionText = 1610
    """Text in the caption of the active window"""
    dsc_ActiveBorder = 1611
    """Border of the active window"""
    dsc_InActiveBorder = 1612
    """Border of inactive windows"""
    dsc_AppWorkspace = 1613
    """Empty area of a window that holds document windows"""
    dsc_Highlight = 1614
    """Background of selected items"""
    dsc_HighlightText = 1615
    """Text of selected items"""
    dsc_BtnFace = 1616
    """Face of buttons and dialogs"""
    dsc_BtnShadow = 1617
    """Shadow edge of buttons"""
    dsc_GrayText = 1618
    """Disabled text"""
    dsc_BtnText = 1619
    """Text on buttons"""
    dsc_InActiveCaptionText = 1620
    """Text in the caption of inactive windows"""
    dsc_BtnHighlight = 1621
    """Lit edge of buttons"""
    dsc_DkShadow3D = 1622
    """Outer, dark shadow edge of raised elements"""
    dsc_Light3D = 1623
    """Inner, light edge of raised elements"""
    dsc_InfoText = 1624
    """Text of tool tips"""
    dsc_InfoBk = 1625
    """Background of tool tips"""
    dsc_BtnAlternateFace = 1626
    """Alternate face of buttons; the usual face on old systems"""
    dsc_HotTracking = 1627
    """Item under the pointer; the selection colour on old systems"""
    dsc_GradientActiveCaption = 1628
    """Right end of the active caption's gradient; the plain caption colour on old systems"""
    dsc_GradientInActiveCaption = 1629
    """Right end of inactive captions' gradient; the plain caption colour on old systems"""
    dsc_MenuHilight = 1630
    """Selected item of flat menus; the selection colour on old systems"""
    dsc_Menubar = 1631
    """Menu bar with flat menus; the menu colour on old systems"""
    dsc_ExplBarNormGroup = 1632
    """Task pane: inside of a normal group"""
    dsc_ExplBarNormGroupBrdL = 1633
    """Task pane: left border of a normal group"""
    dsc_ExplBarNormGroupBrdT = 1634
    """Task pane: upper border of a normal group"""
    dsc_ExplBarNormGroupBrdR = 1635
    """Task pane: right border of a normal group"""
    dsc_ExplBarNormGroupBrdB = 1636
    """Task pane: lower border of a normal group"""
    dsc_ExplBarNormGroupCaption = 1637
    """Task pane: caption of a normal group"""
    dsc_ExplBarSpecGroup = 1638
    """Task pane: inside of a special group"""
    dsc_ExplBarSpecGroupBrdL = 1639
    """Task pane: left border of a special group"""
    dsc_ExplBarSpecGroupBrdT = 1640
    """Task pane: upper border of a special group"""
    dsc_ExplBarSpecGroupBrdR = 1641
    """Task pane: right border of a special group"""
    dsc_ExplBarSpecGroupBrdB = 1642
    """Task pane: lower border of a special group"""
    dsc_ExplBarSpecGroupCaption = 1643
    """Task pane: caption of a special group"""
    dsc_ExplBarBG_Center = 1644
    """Task pane: background in the middle"""
    dsc_ExplBarBG_LeftTop = 1645
    """Task pane: background in the upper left corner"""
    dsc_ExplBarBG_Top = 1646
    """Task pane: background at the upper edge"""
    dsc_ExplBarBG_RightTop = 1647
    """Task pane: background in the upper right corner"""
    dsc_ExplBarBG_Right = 1648
    """Task pane: background at the right edge"""
    dsc_ExplBarBG_RightBottom = 1649
    """Task pane: background in the lower right corner"""
    dsc_ExplBarBG_Bottom = 1650
    """Task pane: background at the lower edge"""
    dsc_ExplBarBG_LeftBottom = 1651
    """Task pane: background in the lower left corner"""
    dsc_ExplBarBG_Left = 1652
    """Task pane: background at the left edge"""

class moX_DRAW_SYSICON(IntEnum):
    """Icons of the system, by their resource numbers"""
    dsi_Error = 32513
    """Stop sign"""
    dsi_Question = 32514
    """Question mark"""
    dsi_Warning = 32515
    """Exclamation mark"""
    dsi_Information = 32516
    """Letter i"""
    dsi_WinLogo = 32517
    """Mark of the system"""
    dsi_Shield = 32518
    """Shield of a privileged action; older systems do not have it"""

class moX_DRAW_TXT_FMT(IntEnum):
    """Flags for text in a rectangle, added together"""
    dtf_LEFT = 0
    """At the left edge"""
    dtf_TOP = 0
    """At the upper edge"""
    dtf_CENTER = 1
    """Centred horizontally"""
    dtf_RIGHT = 2
    """At the right edge"""
    dtf_VCENTER = 4
    """Centred vertically, for a single line"""
    dtf_BOTTOM = 8
    """At the lower edge, for a single line"""
    dtf_WORDBREAK = 16
    """Breaks lines between words where the rectangle ends"""
    dtf_SINGLELINE = 32
    """One line; line ends in the text do not break it"""
    dtf_EXPANDTABS = 64
    """Tabs move to the next stop, 8 characters apart"""
    dtf_TABSTOP = 128
    """Bits 8 to 15 give the distance of the tab stops in characters"""
    dtf_NOCLIP = 256
    """Does not clip to the rectangle"""
    dtf_EXTERNALLEADING = 512
    """Counts the font's external leading in the line height"""
    dtf_CALCRECT = 1024
    """Measures only and draws nothing"""
    dtf_NOPREFIX = 2048
    """An ampersand is an ordinary character"""
    dtf_INTERNAL = 4096
    """Measures with the system font"""
    dtf_EDITCONTROL = 8192
    """Lays out as a multi-line edit box, without a partly visible last line"""
    dtf_PATH_ELLIPSIS = 16384
    """Shortens a path with dots in the middle, its last part kept"""
    dtf_END_ELLIPSIS = -32768
    """Shortens a text that does not fit with dots at its end; has all bits from 15 up set"""
    dtf_MODIFYSTRING = 65536
    """Shortens the text itself along with its output"""
    dtf_WORD_ELLIPSIS = 262144
    """Shortens each word that does not fit with dots at its end"""
    dtf_HIDEPREFIX = 1048576
    """Drops the underline of a mnemonic"""
    dtf_PREFIXONLY = 2097152
    """Draws only the underline of a mnemonic"""

class FONT_DEFAULT_TYPE(IntEnum):
    """Places of the system whose font can be asked for"""
    FDT_SYSTEMDEFAULT = 0
    """The system font"""
    FDT_ICONTITLE = 1
    """Titles of icons"""
    FDT_CAPTION = 2
    """Captions of windows"""
    FDT_SMALLCAPTION = 3
    """Captions of small windows"""
    FDT_MENU = 4
    """Menus"""
    FDT_STATUS = 5
    """Status bars and tool tips"""
    FDT_DIALOG = 6
    """Dialogs and message boxes"""

class moX_FONT_PITCH(IntEnum):
    """Whether the characters of a font are equally wide"""
    fntP_Default = 0
    """Not told"""
    fntP_Fixed = 1
    """Equally wide"""
    fntP_Variable = 2
    """Of their own width"""

class moX_FONT_FAMILY(IntEnum):
    """Look of a font"""
    fntF_DontCare = 0
    """Not told"""
    fntF_Roman = 1
    """With serifs, of varying stroke"""
    fntF_Swiss = 2
    """Without serifs, of varying stroke"""
    fntF_Modern = 3
    """Of constant stroke"""
    fntF_Script = 4
    """Like handwriting"""
    fntF_Decorative = 5
    """For ornament"""

class MOX_FRM_BLENDSPEED(IntEnum):
    """Speed of moxForm.Blend; a step takes 12 milliseconds or more"""
    moxbls_SLOWEST = 1
    """30 steps"""
    moxbls_SLOW = 2
    """25 steps"""
    moxbls_MEDIUM = 3
    """20 steps"""
    moxbls_FAST = 4
    """15 steps"""
    moxbls_FASTEST = 5
    """10 steps"""

class MOX_FRM_BLENDRESULT(IntEnum):
    """Outcome of moxForm.Blend"""
    moxbln_ERROR = -255
    """No such window, a minimised one, or a failure"""
    moxbln_ERRORBUSY = -2
    """A blend of this object is still running"""
    moxbln_ERRORNOTSUPPORTED = -1
    """The system has no transparent windows"""
    moxbln_OK = 0
    """The blend ran to its end"""

class MOX_ME_BUTTON(IntEnum):
    """Mouse buttons, added together where several are down"""
    moxmeb_LeftButton = 1
    """Left button"""
    moxmeb_RightButton = 2
    """Right button"""
    moxmeb_MiddleButton = 4
    """Middle button or wheel"""
    moxmeb_XButton1 = 8
    """First extra button"""
    moxmeb_XButton2 = 16
    """Second extra button"""

class MOX_ME_MOVE_EVENT(IntEnum):
    """What the pointer did"""
    moxmem_Enter = 1
    """Came into the window; a move follows at once"""
    moxmem_Move = 2
    """Moved inside the window"""
    moxmem_Leave = 3
    """Left the window"""

class MOX_ME_BUTTON_EVENT(IntEnum):
    """What a mouse button did"""
    moxmeb_MouseDown = 1
    """Went down"""
    moxmeb_MouseUp = 2
    """Went up"""
    moxmeb_MouseClick = 3
    """Went up inside the window, wherever it went down"""
    moxmeb_MouseDblClick = 4
    """Went down for the second time of a double click"""

class SHOW_FONT_FONTTYPE(IntEnum):
    """Fonts that the font dialog offers"""
    sff_SCREENFONTS = 1
    """Those of the screen"""
    sff_PRINTERFONTS = 2
    """Those of the printer"""
    sff_BOTH = 3
    """Those of both"""

class OFN_InitialView(IntEnum):
    """View in which the open dialog shows its files at first"""
    iv_DEFAULT = 0
    """As the system remembers it"""
    iv_ICON = 1
    """Icons"""
    iv_LIST = 2
    """List"""
    iv_REPORT = 3
    """Details"""
    iv_THUMBNAIL = 4
    """Thumbnails"""
    iv_TILE = 5
    """Tiles"""

class MOX_FS_FILEATTRIBUTES(IntEnum):
    """Attribute bits of files and folders, added together"""
    FA_READONLY = 1
    """Write protected"""
    FA_HIDDEN = 2
    """Hidden"""
    FA_SYSTEM = 4
    """Belongs to the system"""
    FA_VOLUME = 8
    """Volume label"""
    FA_DIRECTORY = 16
    """Folder"""
    FA_ARCHIVE = 32
    """Changed since the last backup"""
    FA_NORMAL = 128
    """No other attribute"""
    FA_TEMPORARY = 256
    """Temporary"""
    FA_ALIAS = 1024
    """Link to another place"""
    FA_COMPRESSED = 2048
    """Compressed by the file system"""

class MOX_FS_ICONSIZE(IntEnum):
    """Size of a shell icon"""
    ICON_16 = 16
    """16 by 16 pixels"""
    ICON_32 = 32
    """32 by 32 pixels"""

class MOX_FS_ICONSTATE(IntEnum):
    """Look of a shell icon"""
    ICONSTATE_NORMAL = 0
    """Plain"""
    ICONSTATE_FOCUS = 1
    """Slightly tinted with the selection colour"""
    ICONSTATE_SELECTED = 2
    """Strongly tinted with the selection colour"""
    ICONSTATE_OPEN_NORMAL = 10
    """Opened, plain"""
    ICONSTATE_OPEN_FOCUS = 11
    """Opened, slightly tinted"""
    ICONSTATE_OPEN_SELECTED = 12
    """Opened, strongly tinted"""

class MOX_FS_STDPATH(IntEnum):
    """Standard folders for moxFS.GetStandardPath"""
    Application = 0
    """Folder of the program that uses the library"""
    Windows = 1
    """Folder of the system"""
    WinSystem = 2
    """Folder of the system's libraries"""
    Temp = 3
    """Temporary files"""
    Fonts = 4
    """Installed fonts"""
    CommonAppData = 14
    """Data of programs, for all users"""
    CommonTemplates = 15
    """Templates, for all users"""
    CommonDocuments = 16
    """Documents, for all users"""
    CommonPictures = 17
    """Pictures, for all users"""
    CommonMusic = 18
    """Music, for all users"""
    CommonVideo = 19
    """Videos, for all users"""
    UserAppData = 24
    """Data of programs, for the current user"""
    UserTemplates = 25
    """Templates, for the current user"""
    UserDocuments = 26
    """Documents, for the current user"""
    UserPictures = 27
    """Pictures, for the current user"""
    UserMusic = 28
    """Music, for the current user"""
    UserVideo = 29
    """Videos, for the current user"""

class MOX_FS_DRIVETYPE(IntEnum):
    """Kinds of drives"""
    DT_UNKNOWN = 0
    """Cannot be told"""
    DT_ABSENT = 1
    """No such drive"""
    DT_REMOVABLE = 2
    """Removable medium, such as a card or a stick"""
    DT_FIXED = 3
    """Hard disk"""
    DT_REMOTE = 4
    """Network drive"""
    DT_CDROM = 5
    """CD drive"""
    DT_RAMDISK = 6
    """Disk in memory"""
    DT_DVDROM = 15
    """DVD drive"""

class MOX_FSW_FILTER(IntEnum):
    """Changes that a watcher looks for, added together"""
    moxfsw_CHANGE_FILE_NAME = 1
    """A file was created, renamed or deleted"""
    moxfsw_CHANGE_DIR_NAME = 2
    """A folder was created, renamed or deleted"""
    moxfsw_CHANGE_ATTRIBUTES = 4
    """An attribute was changed"""
    moxfsw_CHANGE_SIZE = 8
    """The size of a file was changed"""
    moxfsw_CHANGE_LAST_WRITE = 16
    """A file was written to"""
    moxfsw_CHANGE_SECURITY = 256
    """Access rights were changed"""

class SYS_OS_VERSION(IntEnum):
    """Windows versions; the numbers rise with the age of the system, so thresholds can be tested"""
    os_UNKNOWN = 0
    """Cannot be told"""
    os_95 = 10
    """Windows 95"""
    os_95_OSR2 = 11
    """Windows 95, second release"""
    os_98 = 12
    """Windows 98"""
    os_98SE = 13
    """Windows 98, second edition"""
    os_ME = 14
    """Windows ME"""
    os_NT351 = 20
    """Windows NT 3, as a rule 3.51"""
    os_NT4 = 30
    """Windows NT 4"""
    os_2K = 40
    """Windows 2000, workstation or server"""
    os_XP = 50
    """Windows XP, 32-bit"""
    os_XPx64 = 55
    """Windows XP, 64-bit"""
    os_SERVER_2003 = 60
    """Windows Server 2003"""
    os_SERVER_2003R2 = 61
    """Windows Server 2003 R2"""
    os_Vista = 70
    """Windows Vista"""
    os_SERVER_2008 = 80
    """Windows Server 2008"""
    os_SERVER_2008R2 = 81
    """Windows Server 2008 R2"""
    os_WINDOWS_7 = 90
    """Windows 7"""
    os_SERVER_2012 = 100
    """Windows Server 2012"""
    os_WINDOWS_8 = 110
    """Windows 8"""
    os_NewerVersion = 255
    """Newer than the library knows"""

class SYS_OS_VERSION_EX(IntEnum):
    """Editions of the Windows versions"""
    osex_NONE = 0
    """No edition, or it cannot be told"""
    osex_NT4_Workstation = 31
    """NT 4: Workstation"""
    osex_NT4_Server = 32
    """NT 4: Server"""
    osex_NT4_EnterpriseServer = 33
    """NT 4: Enterprise Server"""
    osex_W2K_Workstation = 41
    """2000: Professional, the workstation"""
    osex_W2K_Server = 42
    """2000: Server"""
    osex_W2K_DatacenterServer = 43
    """2000: Datacenter Server"""
    osex_W2K_AdvancedServer = 44
    """2000: Advanced Server"""
    osex_XP_Home = 51
    """XP: Home"""
    osex_XP_Professional = 52
    """XP: Professional"""
    osex_XP_MediaCenter = 53
    """XP: Media Center"""
    osex_XP_Embedded = 54
    """XP: Embedded"""
    osex_SRV2003_Server = 62
    """Server 2003: Standard"""
    osex_SRV2003_DatacenterServer = 63
    """Server 2003: Datacenter"""
    osex_SRV2003_EnterpriseServer = 64
    """Server 2003: Enterprise"""
    osex_SRV2003_WebServer = 65
    """Server 2003: Web"""
    osex_SRV2003_ComputeClusterServer = 66
    """Server 2003: Compute Cluster"""
    osex_SRV2003_R2StorageServer = 67
    """Server 2003 R2: Storage"""
    osex_Vista_Unlicensed = 71
    """Vista: not licensed"""
    osex_Vista_Starter = 72
    """Vista: Starter"""
    osex_Vista_Basic = 73
    """Vista: Home Basic"""
    osex_Vista_Premium = 74
    """Vista: Home Premium"""
    osex_Vista_Business = 75
    """Vista: Business"""
    osex_Vista_Enterprise = 76
    """Vista: Enterprise"""
    osex_Vista_Ultimate = 77
    """Vista: Ultimate"""
    osex_SRV2008_Unlicensed = 81
    """Server 2008: not licensed"""
    osex_SRV2008_ServerHome = 82
    """Server 2008: Home Server"""
    osex_SRV2008_Server = 83
    """Server 2008: Standard"""
    osex_SRV2008_SmallBusinessServer = 84
    """Server 2008: Small Business"""
    osex_SRV2008_EnterpriseServer = 85
    """Server 2008: Enterprise"""
    osex_SRV2008_DatacenterServer = 86
    """Server 2008: Datacenter"""
    osex_SRV2008_WebServer = 87
    """Server 2008: Web"""
    osex_SRV2008_StorageServer = 88
    """Server 2008: Storage, all kinds"""
    osex_SRV2008_ComputeClusterServer = 89
    """Server 2008: Compute Cluster"""
    osex_UNLICENSED = 100
    """From Windows 7 on: not licensed"""
    osex_STARTER = 105
    """From Windows 7 on: Starter"""
    osex_HOME_BASIC = 110
    """From Windows 7 on: Home Basic"""
    osex_HOME_PREMIUM = 115
    """From Windows 7 on: Home Premium"""
    osex_HOME_SERVER = 118
    """From Server 2008 R2 on: Home Server"""
    osex_HOME_PREMIUM_SERVER = 119
    """From Server 2008 R2 on: Home Premium Server"""
    osex_BUSINESS = 120
    """From Windows 7 on: Business"""
    osex_PROFESSIONAL = 125
    """From Windows 7 on: Professional"""
    osex_PROFESSIONAL_WMC = 126
    """Windows 8: Professional with Media Center"""
    osex_ULTIMATE = 130
    """From Windows 7 on: Ultimate"""
    osex_CORE = 140
    """Windows 8: Core"""
    osex_STANDARD_EVALUATION_SERVER = 150
    """From Server 2008 R2 on: Standard, for evaluation"""
    osex_STANDARD_SERVER = 155
    """From Server 2008 R2 on: Standard"""
    osex_STANDARD_SERVER_SOLUTIONS = 158
    """From Server 2008 R2 on: Standard, solutions edition"""
    osex_DATACENTER_EVALUATION_SERVER = 160
    """From Server 2008 R2 on: Datacenter, for evaluation"""
    osex_DATACENTER_SERVER = 165
    """From Server 2008 R2 on: Datacenter"""
    osex_STORAGE_ENTERPRISE_SERVER = 170
    """From Server 2008 R2 on: Storage, Enterprise"""
    osex_STORAGE_EXPRESS_SERVER = 180
    """From Server 2008 R2 on: Storage, Express"""
    osex_STORAGE_STANDARD_EVALUATION_SERVER = 190
    """From Server 2008 R2 on: Storage, Standard, for evaluation"""
    osex_STORAGE_STANDARD_SERVER = 195
    """From Server 2008 R2 on: Storage, Standard"""
    osex_STORAGE_WORKGROUP_EVALUATION_SERVER = 200
    """From Server 2008 R2 on: Storage, Workgroup, for evaluation"""
    osex_STORAGE_WORKGROUP_SERVER = 205
    """From Server 2008 R2 on: Storage, Workgroup"""
    osex_ESSENTIALBUSINESS_SERVER = 210
    """From Server 2008 R2 on: Essential Business"""
    osex_SMALLBUSINESS_SERVER = 220
    """From Server 2008 R2 on: Small Business"""
    osex_SMALLBUSINESS_SERVER_PREMIUM = 225
    """From Server 2008 R2 on: Small Business Premium"""
    osex_SB_SOLUTION_SERVER = 230
    """From Server 2008 R2 on: Small Business 2011 Essentials"""
    osex_SERVER_FOR_SB_SOLUTIONS = 235
    """From Server 2008 R2 on: for Small Business solutions"""
    osex_SERVER_FOR_SMALLBUSINESS = 238
    """From Server 2008 R2 on: Server 2008 for Small Business"""
    osex_MEDIUMBUSINESS_SERVER = 240
    """From Server 2008 R2 on: Essential Business for medium companies"""
    osex_ENTERPRISE_EVALUATION = 250
    """From Server 2008 R2 on: Enterprise, for evaluation"""
    osex_ENTERPRISE = 255
    """From Windows 7 on: Enterprise"""
    osex_ENTERPRISE_SERVER = 258
    """From Server 2008 R2 on: Enterprise"""
    osex_WEB_SERVER = 260
    """From Server 2008 R2 on: Web"""
    osex_CLUSTER_SERVER = 270
    """From Server 2008 R2 on: Cluster"""
    osex_HYPERV_SERVER = 280
    """From Server 2008 R2 on: Hyper-V"""
    osex_MULTIPOINT_SERVER = 290
    """From Server 2008 R2 on: MultiPoint"""
    osex_SERVER_FOUNDATION = 300
    """From Server 2008 R2 on: Foundation"""

class SYS_OS_BOOTMODE(IntEnum):
    """How the system was started"""
    osbm_Normal = 0
    """As usual"""
    osbm_Save = 1
    """In safe mode"""
    osbm_SaveNetwork = 2
    """In safe mode with network"""

class SYS_SYSTEMSOUND(IntEnum):
    """Sounds of the system's sound scheme"""
    snd_StandardBeep = -1
    """Plain beep of the speaker"""
    snd_OK = 0
    """Default sound"""
    snd_Hand = 16
    """Critical stop"""
    snd_Question = 32
    """Question"""
    snd_Exclamation = 48
    """Exclamation"""
    snd_Asterix = 64
    """Information"""

class SYS_SPECIALSOUND(IntEnum):
    """Sound clips that the library holds"""
    _Stopp_Playing = 0
    """No clip: only ends the sound that is playing"""
    snds_AccessDenied = 1
    """For a refusal"""
    snds_Boing = 2
    """For something that bounces back"""
    snds_Buzzer = 3
    """For a wrong answer"""
    snds_Sirens = 4
    """For an alarm"""
    snds_Whoops = 5
    """For a mishap"""
    snds_FRT = 6
    """For a joke"""

class KB_F(IntEnum):
    """Function keys by their virtual key codes"""
    F1 = 112
    """Function key 1"""
    F2 = 113
    """Function key 2"""
    F3 = 114
    """Function key 3"""
    F4 = 115
    """Function key 4"""
    F5 = 116
    """Function key 5"""
    F6 = 117
    """Function key 6"""
    F7 = 118
    """Function key 7"""
    F8 = 119
    """Function key 8"""
    F9 = 120
    """Function key 9"""
    F10 = 121
    """Function key 10"""
    F11 = 122
    """Function key 11"""
    F12 = 123
    """Function key 12"""
    F13 = 124
    """Function key 13, not on common keyboards from here on"""
    F14 = 125
    """Function key 14"""
    F15 = 126
    """Function key 15"""
    F16 = 127
    """Function key 16"""
    F17 = 128
    """Function key 17"""
    F18 = 129
    """Function key 18"""
    F19 = 130
    """Function key 19"""
    F20 = 131
    """Function key 20"""
    F21 = 132
    """Function key 21"""
    F22 = 133
    """Function key 22"""
    F23 = 134
    """Function key 23"""
    F24 = 135
    """Function key 24"""

class LOCALE_DEFAULT_TYPE(IntEnum):
    """Whose locale is asked"""
    ldt_SystemDefault = 0
    """That of the system"""
    ldt_UserDefault = 1
    """That of the current user"""

class LOCALE_INFO(IntEnum):
    """Facts about language and country"""
    li_iLanguageID = 1
    """Language identifier as hexadecimal digits"""
    li_sLanguageName = 2
    """Language and region, in the language of the system"""
    li_sEngLanguage = 4097
    """Language in English"""
    li_sAbbrevLanguageName = 3
    """Three-letter short form of the language"""
    li_sNativeLanguageName = 4
    """Language in itself"""
    li_iCountryCode = 5
    """Country code as in telephone numbers"""
    li_sCountryName = 6
    """Country, in the language of the system"""
    li_sEngCountryName = 4098
    """Country in English"""
    li_sAbbrevCountryName = 7
    """Three-letter short form of the country"""
    li_sNativeCountryName = 8
    """Country in its own language"""
    li_iDefaultLanguageID = 9
    """Main language of the country as hexadecimal digits"""
    li_iDefaultCountryCode = 10
    """Country code of the language's main country"""
    li_iDefaultCodepage = 11
    """Code page of console programs"""

class LOCALE_INFO_NUMBERS(IntEnum):
    """Facts about the writing of numbers"""
    li_iMeasure = 13
    """Measures: 0 metric, 1 US"""
    li_sListSeparator = 12
    """Between the items of a list"""
    li_sDecimalSeparator = 14
    """Decimal point"""
    li_sThousandSeparator = 15
    """Between groups of digits"""
    li_sGrouping = 16
    """Sizes of the digit groups, such as 3;0"""
    li_iDigits = 17
    """Number of decimals"""
    li_iLeadingZero = 18
    """Zero in front of the decimal point: 0 no, 1 yes"""
    li_sPositiveSign = 80
    """Sign of positive numbers"""
    li_sNegativeSign = 81
    """Sign of negative numbers"""
    li_sNativeDigits = 19
    """The ten digits of the locale"""
    li_iIntlCurrDigits = 26
    """Number of decimals of amounts with the international currency sign"""

class LOCALE_INFO_CURRENCY(IntEnum):
    """Facts about the writing of amounts"""
    li_sCurrencySymbol = 20
    """Currency sign"""
    li_sCurrencyIntlSymbol = 21
    """International currency sign, such as EUR"""
    li_sCurrencyDecimalSeparator = 22
    """Decimal point of amounts"""
    li_sCurrencyThousandSeparator = 23
    """Between groups of digits of amounts"""
    li_sCurrencyGrouping = 24
    """Sizes of the digit groups of amounts, such as 3;0"""
    li_iCurrencyDigits = 25
    """Number of decimals of amounts"""
    li_iCurrencySymbolShow = 27
    """Place of the sign: 0 in front, 1 behind, 2 and 3 the same with a blank between"""
    li_iCurrencyNegativePrefix = 28
    """Form of negative amounts, 0 to 15 as the system numbers them"""

class LOCALE_INFO_DATETIME(IntEnum):
    """Facts about the writing of dates and times"""
    li_sDateSeparator = 29
    """Between the parts of a date"""
    li_sTimeSeparator = 30
    """Between the parts of a time"""
    li_sShortDateFormat = 31
    """Picture of the short date, such as dd.MM.yyyy"""
    li_sLongDateFormat = 32
    """Picture of the long date"""
    li_sTimeFormat = 4099
    """Picture of the time, such as HH:mm:ss"""
    li_iTime24HourFmt = 35
    """Hours: 0 to 12 with AM and PM, 1 to 24"""
    li_s1159_AM = 40
    """Mark of times before noon"""
    li_s2359_PM = 41
    """Mark of times after noon"""
    li_iDateGrouping = 33
    """Order of the short date: 0 month first, 1 day first, 2 year first"""
    li_iLDate = 34
    """Order of the long date: 0 month first, 1 day first, 2 year first"""
    li_iCenturyTwoFourDigits = 36
    """Year of the short date: 0 two digits, 1 four"""
    li_iTimeLeadingZero = 37
    """Zero in front of single-digit hours: 0 no, 1 yes"""
    li_iDayLeadingZero = 38
    """Zero in front of single-digit days: 0 no, 1 yes"""
    li_iMonthLeadingZero = 39
    """Zero in front of single-digit months: 0 no, 1 yes"""
    li_sDayName1 = 42
    """Word for Monday"""
    li_sDayName2 = 43
    """Word for Tuesday"""
    li_sDayName3 = 44
    """Word for Wednesday"""
    li_sDayName4 = 45
    """Word for Thursday"""
    li_sDayName5 = 46
    """Word for Friday"""
    li_sDayName6 = 47
    """Word for Saturday"""
    li_sDayName7 = 48
    """Word for Sunday"""
    li_sAbbrevDayName1 = 49
    """Short form of Monday"""
    li_sAbbrevDayName2 = 50
    """Short form of Tuesday"""
    li_sAbbrevDayName3 = 51
    """Short form of Wednesday"""
    li_sAbbrevDayName4 = 52
    """Short form of Thursday"""
    li_sAbbrevDayName5 = 53
    """Short form of Friday"""
    li_sAbbrevDayName6 = 54
    """Short form of Saturday"""
    li_sAbbrevDayName7 = 55
    """Short form of Sunday"""
    li_sMonthName1 = 56
    """Word for January"""
    li_sMonthName2 = 57
    """Word for February"""
    li_sMonthName3 = 58
    """Word for March"""
    li_sMonthName4 = 59
    """Word for April"""
    li_sMonthName5 = 60
    """Word for May"""
    li_sMonthName6 = 61
    """Word for June"""
    li_sMonthName7 = 62
    """Word for July"""
    li_sMonthName8 = 63
    """Word for August"""
    li_sMonthName9 = 64
    """Word for September"""
    li_sMonthName10 = 65
    """Word for October"""
    li_sMonthName11 = 66
    """Word for November"""
    li_sMonthName12 = 67
    """Word for December"""
    li_sAbbrevMonthName1 = 68
    """Short form of January"""
    li_sAbbrevMonthName2 = 69
    """Short form of February"""
    li_sAbbrevMonthName3 = 70
    """Short form of March"""
    li_sAbbrevMonthName4 = 71
    """Short form of April"""
    li_sAbbrevMonthName5 = 72
    """Short form of May"""
    li_sAbbrevMonthName6 = 73
    """Short form of June"""
    li_sAbbrevMonthName7 = 74
    """Short form of July"""
    li_sAbbrevMonthName8 = 75
    """Short form of August"""
    li_sAbbrevMonthName9 = 76
    """Short form of September"""
    li_sAbbrevMonthName10 = 77
    """Short form of October"""
    li_sAbbrevMonthName11 = 78
    """Short form of November"""
    li_sAbbrevMonthName12 = 79
    """Short form of December"""

class REG_ROOTKEY(IntEnum):
    """Predefined keys at the top of the registry"""
    HKEY_CLASSES_ROOT = -2147483648
    """File types and classes"""
    HKEY_CURRENT_USER = -2147483647
    """Settings of the current user"""
    HKEY_LOCAL_MACHINE = -2147483646
    """Settings of the machine"""
    HKEY_USERS = -2147483645
    """Settings of all loaded users"""
    HKEY_PERFORMANCE_DATA = -2147483644
    """Performance counters"""
    HKEY_CURRENT_CONFIG = -2147483643
    """Present hardware profile"""
    HKEY_DYN_DATA = -2147483642
    """Passing facts of old systems"""

class INET_IE_VER(IntEnum):
    """Version of the system's internet layer"""
    INIE_UNKNOWN = 0
    """Cannot be told"""
    INIE_3 = 3
    """Version 3"""
    INIE_4 = 4
    """Version 4"""
    INIE_5_OrHigher = 5
    """Version 5 or newer"""

class INET_CONNECTION_TYPE(IntEnum):
    """How the machine reaches the internet"""
    INCT_UNKNOWN = 0
    """Cannot be told"""
    INCT_MODEM = 1
    """By dialling"""
    INCT_LAN = 2
    """By a network"""

class INET_CONNECTION_PROXYTYPE(IntEnum):
    """How a session finds its proxy"""
    INPT_AUTO = 0
    """As the system is set up"""
    INPT_NOPROXY = 1
    """Without a proxy"""
    INPT_PROXY = 2
    """With the proxy of the profile"""

class INET_CONNECTION_PORT(IntEnum):
    """Port of a server"""
    INPR_DEFAULT_PORT = 0
    """The usual one: 21 for FTP, 80 for HTTP, 443 with SSL"""
    INPR_FTP_PORT_21 = 21
    """FTP"""
    INPR_GOPHER_PORT_70 = 70
    """Gopher"""
    INPR_HTTP_PORT_80 = 80
    """HTTP"""
    INPR_HTTPS_PORT_443 = 443
    """HTTPS"""
    INPR_SOCKS_PORT_1080 = 1080
    """SOCKS"""
    INPR_USERDEFINED_PORT = 32768
    """The one in PortUserDefined"""

class INET_CONNECTION_STATE(IntEnum):
    """State of a connection to a server"""
    INCS_DISCONNECTING = 10
    """Being closed"""
    INCS_DISCONNECTED = 11
    """Closed"""
    INCS_CONNECTING = 20
    """Being opened"""
    INCS_CONNECTED_IDLE = 21
    """Open"""
    INCS_CONNECTED_BUSY = 22
    """Open, reading a remote folder"""

class INET_CONNECTION_CONNECT_RESULT(IntEnum):
    """Outcome of ServerConnect"""
    INCCR_ERR_UNKNOWN = -255
    """Some other failure"""
    INCCR_ERR_INET = -20
    """The session is not open"""
    INCCR_ERR_SERVERLOGIN = -11
    """The server refused the login"""
    INCCR_ERR_SERVER = -10
    """The server cannot be reached, or none is named"""
    INCCR_OK = 0
    """Connected"""

class INET_CONNECTION_SERVER_FILERESULT(IntEnum):
    """Status of a request, as the server answers it"""
    INSGF_ERROR = 0
    """The request failed, or another status"""
    INSGF_OK = 200
    """Served"""
    INSGF_CREATED = 201
    """Created"""
    INSGF_ACCEPTED = 202
    """Accepted, not yet done"""
    INSGF_NOCONTENT = 204
    """Done, nothing to send"""
    INSGF_MOVEDPERMANENTLY = 301
    """Has another address; not followed"""
    INSGF_MOVEDTEMPORARLILY = 302
    """Has another address for now; not followed"""
    INSGF_NOTMODIFIED = 304
    """Not changed"""
    INSGF_BADREQUEST = 400
    """Not understood"""
    INSGF_UNAUTHORIZED = 401
    """Needs a login"""
    INSGF_FORBIDDEN = 403
    """Not allowed"""
    INSGF_NOTFOUND = 404
    """Does not exist"""
    INSGF_SERVERERROR = 500
    """Failure in the server, or no connection to one"""
    INSGF_NOTIMPLEMENTED = 501
    """The server cannot do that"""
    INSGF_BADGATEWAY = 502
    """Bad answer of a server behind this one"""
    INSGF_SERVICEUNAVAILABLE = 503
    """Overloaded or being serviced"""

class INET_READ_URL_RESULT(IntEnum):
    """Outcome of moxHTTP.ReadUrl"""
    IRUR_ERROR = 0
    """Some other failure"""
    IRUR_OK = 200
    """Read, whatever status the server gave"""
    IRUR_ERROR_INITCONNECTION = 1000
    """The session cannot be opened"""
    IRUR_ERROR_URLCONNECTION = 1002
    """The URL cannot be opened"""
    IRUR_CANCELLED = 1010
    """Cancelled by an event handler"""

class INET_CONNECTION_FTP_TRANSFER_TYPE(IntEnum):
    """How an FTP transfer treats the bytes"""
    INC_FTP_TRANSFER_TYPE_ASCII = 1
    """As text, line ends converted"""
    INC_FTP_TRANSFER_TYPE_BINARY = 2
    """Unchanged"""
