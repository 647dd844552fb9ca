# Classes, records and enum values of TRL_OBKR_MOX. Generated from TRL_OBKR_MOX.idl; do not edit.
from datetime import datetime
from decimal import Decimal
from typing import Any, Literal, overload

import mox
import mox.enums

class StdFont(mox.Object):
    """Font object with events; every font that the library hands out is one"""
    @property
    def Name(self) -> str:
        """Face name"""
    @Name.setter
    def Name(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Size(self) -> Decimal:
        """Size in points, with four decimals"""
    @Size.setter
    def Size(self, value: float | Decimal) -> None: ...
    @property
    def Bold(self) -> bool:
        """True if bold; the same as a Weight of 551 or more"""
    @Bold.setter
    def Bold(self, value: bool) -> None: ...
    @property
    def Italic(self) -> bool:
        """True if italic"""
    @Italic.setter
    def Italic(self, value: bool) -> None: ...
    @property
    def Underline(self) -> bool:
        """True if underlined"""
    @Underline.setter
    def Underline(self, value: bool) -> None: ...
    @property
    def Strikethrough(self) -> bool:
        """True if struck out"""
    @Strikethrough.setter
    def Strikethrough(self, value: bool) -> None: ...
    @property
    def Weight(self) -> int:
        """Thickness of the strokes, 0 to 1000; 400 is regular, 700 bold"""
    @Weight.setter
    def Weight(self, value: int) -> None: ...
    @property
    def Charset(self) -> int:
        """Character set: 0 Western, 1 default, 2 symbols, and others as the system numbers them"""
    @Charset.setter
    def Charset(self, value: int) -> None: ...

class StdPicture(mox.Object):
    """Picture object; a new one is empty, with Type 0 and Handle 0"""
    @property
    def Handle(self) -> int:
        """Handle of the bitmap, metafile or icon; 0 for an empty picture"""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def hPal(self) -> int:
        """Handle of the palette of a bitmap, 0 if there is none"""
    @hPal.setter
    def hPal(self, value: int) -> None: ...
    @property
    def Type(self) -> int:
        """Kind: -1 uninitialised, 0 none, 1 bitmap, 2 metafile, 3 icon, 4 enhanced metafile"""
    @property
    def Width(self) -> int:
        """Width in hundredths of a millimetre"""
    @property
    def Height(self) -> int:
        """Height in hundredths of a millimetre"""
    def Render(self, hdc: int, x: int, y: int, cx: int, cy: int, xSrc: int, ySrc: int, cxSrc: int, cySrc: int, prcWBounds: int = 0) -> None:
        """Draws a part of the picture: target in units of hdc, source in 0.01 mm from the lower left corner"""

class PropertyBag(mox.Object):
    """Bag of named values; a new one is empty"""
    def ReadProperty(self, Name: str, DefaultValue: Any = ...) -> Any:
        """The value stored under this name, else DefaultValue; without one a missing name raises an error"""
    def WriteProperty(self, Name: str, Value: Any, DefaultValue: Any = ...) -> None:
        """Stores a value or an object that can save itself; one that equals DefaultValue is left out"""
    @property
    def Contents(self) -> Any:
        """All stored values as a byte array from 0, to keep anywhere"""
    @Contents.setter
    def Contents(self, value: Any) -> None: ...

class Screen(mox.Object):
    """The primary screen; all these objects show the same one"""
    @property
    def Width(self) -> float:
        """Width of the primary screen in twips"""
    @property
    def Height(self) -> float:
        """Height of the primary screen in twips"""
    @property
    def TwipsPerPixelX(self) -> float:
        """Twips to a pixel in horizontal direction, 15 at 96 dots per inch"""
    @property
    def TwipsPerPixelY(self) -> float:
        """Twips to a pixel in vertical direction, 15 at 96 dots per inch"""

class Global(mox.Object):
    """Global object with a predeclared instance for each apartment"""
    @property
    def Screen(self) -> mox.Screen:
        """The primary screen"""
    def Load(self, Object: mox.Object | None) -> None:
        """Creates the window of a form without showing it"""
    def Unload(self, Object: mox.Object | None) -> None:
        """Takes a form and its controls off the screen and destroys their windows"""
    def LoadPicture(self, FileName: Any = ...) -> mox.StdPicture:
        """Picture of an image file; without a FileName an empty picture; a bad file raises an error"""
    def SavePicture(self, Picture: mox.StdPicture | None, FileName: str) -> None:
        """Writes a picture to a file in the format of its kind; raises an error on failure"""

class Form(mox.Object):
    """Form; a new one is empty, not loaded and not shown"""
    @property
    def Controls(self) -> mox.Controls:
        """The controls of the form"""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Name(self) -> str:
        """Name of the form"""
    @property
    def Caption(self) -> str:
        """Text in the title bar"""
    @Caption.setter
    def Caption(self, value: str) -> None: ...
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def hWnd(self) -> int:
        """Window handle; reading it loads the form"""
    @property
    def hDC(self) -> int:
        """Device context of the inside; it stays the property of the form"""
    @property
    def Left(self) -> float:
        """Position of the left edge in twips"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in twips"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in twips"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in twips"""
    @Height.setter
    def Height(self, value: float) -> None: ...
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the form in one step; left out values stay"""
    @property
    def ScaleMode(self) -> int:
        """Unit of the inside: 1 twip, 2 point, 3 pixel, 5 inch, 6 millimetre, 7 centimetre; 1 at the start"""
    @ScaleMode.setter
    def ScaleMode(self, value: int) -> None: ...
    @property
    def ScaleWidth(self) -> float:
        """Width of the inside in the unit of ScaleMode"""
    @property
    def ScaleHeight(self) -> float:
        """Height of the inside in the unit of ScaleMode"""
    @property
    def WindowState(self) -> int:
        """0 normal, 1 minimised, 2 maximised"""
    @WindowState.setter
    def WindowState(self, value: int) -> None: ...
    @property
    def Visible(self) -> bool:
        """True while the form is shown, False once the user has closed it"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...
    def Show(self, Modal: Any = ..., OwnerForm: Any = ...) -> None:
        """Loads and shows the form; with Modal 1 returns when it is hidden or closed, with Modal 0 at once"""
    def Hide(self) -> None:
        """Hides the form and keeps it loaded"""

class _Controls_Item:
    """The control with this name, or at this place counted from 0; raises an error if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _Controls_Item: ...
    def __call__(self, Index: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...

class Controls(mox.Object):
    """Collection of controls, from Form.Controls"""
    Item: _Controls_Item
    def __call__(self, Index: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def _NewEnum(self) -> Any:
        """Enumerator over all controls, for loops over the collection"""
    @property
    def Count(self) -> int:
        """Number of controls"""
    def Add(self, ProgID: str, Name: str, Container: Any = ...) -> Any:
        """Adds a hidden control: VB.PictureBox, VB.Label, VB.ComboBox, VB.HScrollBar or VB.VScrollBar"""
    def Remove(self, Name: str) -> None:
        """Removes the control with this name and destroys its window"""

class PictureBox(mox.Object):
    """Picture box, from Controls.Add"""
    @property
    def Picture(self) -> mox.StdPicture:
        """The picture that is shown; empty at the start"""
    @Picture.setter
    def Picture(self, value: mox.StdPicture | None) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Name(self) -> str:
        """Name of the control in its form; fixed when it is added"""
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def hWnd(self) -> int:
        """Window handle"""
    @property
    def hDC(self) -> int:
        """Device context of the inside; it stays the property of the control"""
    @property
    def Left(self) -> float:
        """Position of the left edge in the container's scale units, twips by default"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in the container's scale units, twips by default"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in the container's scale units, twips by default"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in the container's scale units, twips by default"""
    @Height.setter
    def Height(self, value: float) -> None: ...
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the control in one step; left out values stay"""
    @property
    def ScaleMode(self) -> int:
        """Unit of the inside: 1 twip, 2 point, 3 pixel, 5 inch, 6 millimetre, 7 centimetre; 1 at the start"""
    @ScaleMode.setter
    def ScaleMode(self, value: int) -> None: ...
    @property
    def ScaleWidth(self) -> float:
        """Width of the inside in the unit of ScaleMode"""
    @property
    def ScaleHeight(self) -> float:
        """Height of the inside in the unit of ScaleMode"""
    @property
    def BorderStyle(self) -> int:
        """0 no border, 1 a single line; 1 at the start"""
    @BorderStyle.setter
    def BorderStyle(self, value: int) -> None: ...
    @property
    def Visible(self) -> bool:
        """True if the control is shown with its form"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...

class Label(mox.Object):
    """Label, from Controls.Add"""
    @property
    def Caption(self) -> str:
        """Text of the label"""
    @Caption.setter
    def Caption(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Name(self) -> str:
        """Name of the control in its form; fixed when it is added"""
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def Left(self) -> float:
        """Position of the left edge in the container's scale units, twips by default"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in the container's scale units, twips by default"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in the container's scale units, twips by default"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in the container's scale units, twips by default"""
    @Height.setter
    def Height(self, value: float) -> None: ...
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the control in one step; left out values stay"""
    @property
    def FontName(self) -> str:
        """Face name of the text"""
    @FontName.setter
    def FontName(self, value: str) -> None: ...
    @property
    def FontSize(self) -> float:
        """Size of the text in points"""
    @FontSize.setter
    def FontSize(self, value: float) -> None: ...
    @property
    def Visible(self) -> bool:
        """True if the control is shown with its form"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...

class ComboBox(mox.Object):
    """Combo box, from Controls.Add"""
    @property
    def Name(self) -> str:
        """Name of the control in its form; fixed when it is added"""
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def hWnd(self) -> int:
        """Window handle"""
    @property
    def Left(self) -> float:
        """Position of the left edge in the container's scale units, twips by default"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in the container's scale units, twips by default"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in the container's scale units, twips by default"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in the container's scale units, twips by default; it follows from the font and cannot be set"""
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the control in one step; left out values stay, and giving a Height raises an error"""
    @property
    def Visible(self) -> bool:
        """True if the control is shown with its form"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...

class HScrollBar(mox.Object):
    """Horizontal scroll bar, from Controls.Add"""
    @property
    def Name(self) -> str:
        """Name of the control in its form; fixed when it is added"""
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def hWnd(self) -> int:
        """Window handle"""
    @property
    def Left(self) -> float:
        """Position of the left edge in the container's scale units, twips by default"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in the container's scale units, twips by default"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in the container's scale units, twips by default"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in the container's scale units, twips by default"""
    @Height.setter
    def Height(self, value: float) -> None: ...
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the control in one step; left out values stay"""
    @property
    def Visible(self) -> bool:
        """True if the control is shown with its form"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...

class VScrollBar(mox.Object):
    """Vertical scroll bar, from Controls.Add"""
    @property
    def Name(self) -> str:
        """Name of the control in its form; fixed when it is added"""
    @property
    def Tag(self) -> str:
        """Free text of the application"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def hWnd(self) -> int:
        """Window handle"""
    @property
    def Left(self) -> float:
        """Position of the left edge in the container's scale units, twips by default"""
    @Left.setter
    def Left(self, value: float) -> None: ...
    @property
    def Top(self) -> float:
        """Position of the upper edge in the container's scale units, twips by default"""
    @Top.setter
    def Top(self, value: float) -> None: ...
    @property
    def Width(self) -> float:
        """Width in the container's scale units, twips by default"""
    @Width.setter
    def Width(self, value: float) -> None: ...
    @property
    def Height(self) -> float:
        """Height in the container's scale units, twips by default"""
    @Height.setter
    def Height(self, value: float) -> None: ...
    def Move(self, Left: float, Top: Any = ..., Width: Any = ..., Height: Any = ...) -> None:
        """Moves and sizes the control in one step; left out values stay"""
    @property
    def Visible(self) -> bool:
        """True if the control is shown with its form"""
    @Visible.setter
    def Visible(self, value: bool) -> None: ...

class _moxHub_ExtensionInfo:
    """A fact about the running library, as Long or String; an unknown eInfo gives an empty text"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxHub_ExtensionInfo: ...
    def __call__(self, eInfo: mox.enums.MOX_EXTENSION_INFO | int) -> Any: ...
    def __getitem__(self, index: mox.enums.MOX_EXTENSION_INFO | int) -> Any: ...

class moxHub(mox.Object):
    """Root object of the library; every hub has its own tree of service objects and its own caches"""
    @property
    def INet(self) -> mox.moxINet:
        """Internet services: session state, dialling, browser, HTTP and FTP"""
    def ShowAbout(self) -> None:
        """Shows the about box with the library's version and returns when the user has closed it"""
    @property
    def FileSystem(self) -> mox.moxFS:
        """File, folder and drive services, search and standard folders"""
    @property
    def Vars(self) -> mox.moxVars:
        """Value helpers: unit conversion, bits, ranges, rectangles, text, rotation"""
    @property
    def CommonDialog(self) -> mox.moxCommonDialog:
        """Standard dialogs for folders, fonts, colours and file names"""
    @property
    def Controls(self) -> mox.moxControls:
        """Factory for timers and for mouse event watchers"""
    @property
    def Form(self) -> mox.moxForm:
        """Transparency, blending, centring and other helpers for windows and forms"""
    ExtensionInfo: _moxHub_ExtensionInfo
    @property
    def Drawing(self) -> mox.moxDrawing:
        """Colours, pictures, fonts and drawing on device contexts"""
    @property
    def System(self) -> mox.moxSystem:
        """Facts about machine and user, printers, registry, locale, input and sound"""

class moxHubGlobal(mox.Object):
    """Global object with a predeclared instance, so that mox can be used without declaring anything"""
    @property
    def mox(self) -> mox.moxHub:
        """The shared root object, created at first use and kept as long as the global object lives"""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...

class moxControls(mox.Object):
    """Factory for timers and mouse event watchers, from moxHub.Controls"""
    def CreateMouseEventsObject(self) -> mox.moxMouseEvents:
        """A new object that raises mouse events of one window; set its hWnd to start"""
    def CreateTimerObject(self) -> mox.moxTimer:
        """A new timer, stopped; nothing but the caller keeps it until it is started"""

class moxVars(mox.Object):
    """Facade of the value helpers, from moxHub.Vars"""
    def ConvertUnit(self, SourceValue: float | mox.ByRef, SourceUnit: mox.enums.MOX_SCALEUNIT | int | mox.ByRef, DestUnit: mox.enums.MOX_SCALEUNIT | int | mox.ByRef) -> float:
        """SourceValue turned from SourceUnit into DestUnit; an unknown unit gives 0, equal units give the value back"""
    def Hex2Long(self, HexValue: str) -> int:
        """Number in a hexadecimal text, other characters ignored; up to four digits count as signed 16 bits; 0 if none"""
    @property
    def vMath(self) -> mox.moxVarMath:
        """Rotation of points and rectangles, sine and cosine by table"""
    @property
    def vByte(self) -> mox.moxVarByte:
        """Bits and ranges of Byte values, bytes to text"""
    @property
    def vInteger(self) -> mox.moxVarInteger:
        """Bits, bytes and ranges of Integer values"""
    @property
    def vSingle(self) -> mox.moxVarSingle:
        """Ranges of Single values"""
    @property
    def vLong(self) -> mox.moxVarLong:
        """Bits, words and ranges of Long values"""
    @property
    def vString(self) -> mox.moxVarString:
        """Conversions and clean-up of text"""
    @property
    def vRect(self) -> mox.moxVarRect:
        """Building, moving and sizing of rectangles"""
    @property
    def vObject(self) -> mox.moxVarObject:
        """Objects to numbers and back"""

class moxVarLong(mox.Object):
    """Helpers for Long values, from moxVars.vLong"""
    def GetLoWord(self, LngValue: int) -> int:
        """The low 16 bits of a Long, read as a signed number"""
    def GetBit(self, LngValue: int, BitNr: int) -> bool:
        """True if bit BitNr, 0 to 31, is set; False for a higher BitNr"""
    def SetBit(self, LngValue: int | mox.ByRef, BitNr: int, bSetBit: bool) -> None:
        """Sets or clears bit BitNr, 0 to 31, in the caller's variable; a higher BitNr changes nothing"""
    def GetHiWord(self, LngValue: int) -> int:
        """The high 16 bits of a Long, read as a signed number"""
    def MakeDWord(self, LoWord: int, HiWord: int) -> int:
        """Joins two 16-bit halves; a negative LoWord does not spill into the high half"""
    def SwapEndian(self, LngValue: int) -> int:
        """The four bytes in reverse order"""
    def SwapValues(self, LngA: int | mox.ByRef, LngB: int | mox.ByRef) -> None:
        """Exchanges the contents of two Long variables"""
    def MinMax(self, LongValue: int, MinValue: int = -2147483647, MaxValue: int = 2147483647) -> int:
        """LongValue held to MinValue and MaxValue; the lower limit is tested first"""

class moxVarInteger(mox.Object):
    """Helpers for Integer values, from moxVars.vInteger"""
    def MakeWord(self, LoByte: int, HiByte: int) -> int:
        """Joins two bytes; a HiByte of 128 or more gives a negative number"""
    def GetBit(self, IntValue: int, BitNr: int) -> bool:
        """True if bit BitNr, 0 to 15, is set; False for a higher BitNr"""
    def GetHiByte(self, IntValue: int) -> int:
        """The high 8 bits, 0 to 255"""
    def GetLoByte(self, IntValue: int) -> int:
        """The low 8 bits, 0 to 255"""
    def MinMax(self, IntValue: int, MinValue: int = -32768, MaxValue: int = 32767) -> int:
        """IntValue held to MinValue and MaxValue; the lower limit is tested first"""
    def SetBit(self, IntValue: int | mox.ByRef, BitNr: int, bSetBit: bool) -> None:
        """Sets or clears bit BitNr, 0 to 15, in the caller's variable; a higher BitNr changes nothing"""
    def SwapValues(self, IntA: int | mox.ByRef, IntB: int | mox.ByRef) -> None:
        """Exchanges the contents of two Integer variables"""

class moxVarByte(mox.Object):
    """Helpers for Byte values, from moxVars.vByte"""
    def MinMax(self, ByteValue: int, MinValue: int = 0, MaxValue: int = 255) -> int:
        """ByteValue held to MinValue and MaxValue; the lower limit is tested first"""
    def GetBit(self, ByteValue: int, BitNr: int) -> bool:
        """True if bit BitNr, 0 to 7, is set; False for a higher BitNr"""
    def SetBit(self, ByteValue: int, BitNr: int, bSetBit: bool) -> None:
        """Has no effect on the caller, as ByteValue is passed by value; kept for the place in the interface"""
    def ConvByteArr2String(self, ByteArray: bytes | mox.ByRef) -> str:
        """The bytes as text in the system's ANSI code page; a NUL does not end the text"""
    def SwapValues(self, ByteA: int | mox.ByRef, ByteB: int | mox.ByRef) -> None:
        """Exchanges the contents of two Byte variables"""

class moxVarSingle(mox.Object):
    """Helpers for Single values, from moxVars.vSingle"""
    def MinMax(self, SngValue: float, MinValue: float = -3.402823e+38, MaxValue: float = 3.402823e+38) -> float:
        """SngValue held to MinValue and MaxValue; the lower limit is tested first"""
    def SwapValues(self, SngA: float | mox.ByRef, SngB: float | mox.ByRef) -> None:
        """Exchanges the contents of two Single variables"""

class moxVarRect(mox.Object):
    """Helpers for rectangles, from moxVars.vRect"""
    def MoveRect(self, rc: mox.RECT | mox.ByRef, xOff: int = 0, yOff: int = 0) -> Any:
        """Shifts rc by xOff and yOff; the result is always empty"""
    def OffsetRect(self, rc: mox.RECT | mox.ByRef, X1off: int = 0, Y1off: int = 0, X2off: int = 0, Y2off: int = 0, Validate: bool = True) -> Any:
        """Shifts each edge of rc by its own offset; Validate swaps edges that have crossed; the result is always empty"""
    def RectFromPoints(self, X1: int, Y1: int, X2: int, Y2: int) -> mox.RECT:
        """Rectangle with the four values as its edges, not sorted"""
    def RectFromPosAndSize(self, X: int, Y: int, CX: int, CY: int) -> mox.RECT:
        """Rectangle from a corner and a size; Right is X + CX - 1, Bottom is Y + CY - 1"""
    def SizeRect(self, rc: mox.RECT | mox.ByRef, CX: int = -1, CY: int = -1) -> Any:
        """New width or height from the upper left corner of rc; a negative size keeps it; the result is always empty"""

class moxVarObject(mox.Object):
    """Objects to numbers and back, from moxVars.vObject"""
    def ObjectFromPointer(self, lPointer: int) -> Any:
        """The living object that PointerFromObject gave this number for; 0 gives Nothing"""
    def PointerFromObject(self, cObject: mox.Object | None | mox.ByRef) -> int:
        """A number that names the object as long as it lives; it holds no reference; Nothing gives 0"""

class moxVarString(mox.Object):
    """Text helpers, from moxVars.vString"""
    def URLEncode(self, StringToEncode: str | mox.ByRef, UsePlusRatherThanHexForSpace: bool | mox.ByRef = False) -> str:
        """Escapes all but digits and unaccented letters as %XX; a blank becomes %20 or +; on failure the text as given"""
    def URLDecode(self, StringToDecode: str) -> str:
        """Resolves + and %XX escapes; a text that ends in an incomplete escape comes back unchanged"""
    def StringChecksum(self, Str2Conv: str) -> int:
        """CRC-32 of the ANSI bytes with start value 0, so not the usual number; an empty text gives -1"""
    def StringEntities(self, String2Convert: str, bConvert2Entities: bool) -> str:
        """Decodes HTML entities and <br />; with bConvert2Entities encodes afterwards, so nothing is encoded twice"""
    def Conv2HexString(self, Str2Conv: str, bConvBack: bool = False) -> str:
        """Two hexadecimal digits for each ANSI byte; with bConvBack such digits back to text"""
    def StringTrimRight(self, String2Trim: str, bTrimSpace: bool = True, bTrimCR: bool = True, bTrimLF: bool = True, bTrimChar0: bool = True, bTrimTab: bool = True) -> str:
        """Drops the chosen kinds of white space and NUL from the end of the text"""
    def StringLeftZeroFill(self, String2Fill: str, Digits: int) -> str:
        """Puts zeros in front up to Digits characters; a longer text is not cut"""
    def StringSwap(self, StrA: str | mox.ByRef, StrB: str | mox.ByRef) -> None:
        """Exchanges the contents of two String variables"""
    def Conv2Byte(self, Str: str, Min: int = 0, Max: int = 255) -> int:
        """Number at the start of the text, rounded and held to Min and Max; no number gives 0"""
    def Conv2Integer(self, Str: str, Min: int = -32768, Max: int = 32767) -> int:
        """Number at the start of the text, rounded and held to Min and Max; no number gives 0"""
    def Conv2Single(self, Str: str, Min: float = -3.402823e+38, Max: float = 3.402823e+38) -> float:
        """Number at the start of the text held to Min and Max; here a comma counts as decimal point too"""
    def Conv2Long(self, Str: str, Min: int = -2147483647, Max: int = 2147483647) -> int:
        """Number at the start of the text, rounded and held to Min and Max; no number gives 0"""

class moxVarMath(mox.Object):
    """Rotation and trigonometry, from moxVars.vMath"""
    def RotateRect(self, rcRotate: mox.RECT | mox.ByRef, Degree: int, ptRotated: list[mox.POINTAPI] | mox.ByRef, rcRotatedBoundaries: mox.RECT | mox.ByRef) -> None:
        """Turns rcRotate around its centre by Degree: the four corners and the smallest upright rectangle around them"""
    def RotatePoint(self, ptRotate: mox.POINTAPI | mox.ByRef, xCenter: float, yCenter: float, Degree: int) -> None:
        """Turns the point around a centre by Degree; the fraction is cut; on overflow the point stays"""
    def RotatePointTenthsDegree(self, ptRotate: mox.POINTAPI | mox.ByRef, xCenter: float, yCenter: float, TenthsDegree: int) -> None:
        """Turns the point around a centre by TenthsDegree; rounded to nearest; on overflow the point stays"""
    def Cosinus(self, Degree: int) -> float:
        """Cosine of a whole number of degrees"""
    def CosinusTenths(self, TenthsDegree: int) -> float:
        """Cosine of tenths of a degree"""
    def RotateRectEx(self, rcRotate: mox.RECT | mox.ByRef, Degree: int, xOrigin: float, yOrigin: float, ptRotated: list[mox.POINTAPI] | mox.ByRef, rcRotatedBoundaries: mox.RECT | mox.ByRef) -> None:
        """As RotateRect, but around the given centre xOrigin, yOrigin"""
    def RotateRectTenthsDegree(self, rcRotate: mox.RECT | mox.ByRef, TenthsDegree: int, ptRotated: list[mox.POINTAPI] | mox.ByRef, rcRotatedBoundaries: mox.RECT | mox.ByRef) -> None:
        """As RotateRect, with the angle in tenths of a degree"""
    def Sinus(self, Degree: int) -> float:
        """Sine of the negated angle in degrees: Sinus(90) is -1"""
    def SinusTenths(self, TenthsDegree: int) -> float:
        """Sine of the negated angle in tenths of a degree: SinusTenths(900) is -1"""

class _moxPrinters_Printer:
    """The printer at Index, counted from 0; -1 is the current one; outside the list Nothing"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinters_Printer: ...
    def __call__(self, Index: int = -1) -> mox.moxPrinter: ...
    def __getitem__(self, index: int) -> mox.moxPrinter: ...

class moxPrinters(mox.Object):
    """List of the installed printers, from moxSystem.Printers"""
    def ShowSelectPrinter(self, hWnd: int = 0) -> bool:
        """Print setup dialog for the current printer, owned by window hWnd; True if confirmed, choice and settings taken"""
    @property
    def CurrentPrinter(self) -> int:
        """Index of the current printer, -1 if there is none; at first the default printer"""
    @CurrentPrinter.setter
    def CurrentPrinter(self, value: int) -> None: ...
    @property
    def Count(self) -> int:
        """Number of printers in the list"""
    Printer: _moxPrinters_Printer
    def __call__(self, Index: int = -1) -> mox.moxPrinter: ...
    def __getitem__(self, index: Any) -> mox.moxPrinter: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    def Update(self, ResetAllPrinterSettings2Default: bool = False) -> bool:
        """Reads the list again and makes the default printer current; unchanged printers keep object and settings"""

class _moxPrinter_PaperBinName:
    """Name of the bin at Index (-1 is the selected one); empty outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperBinName: ...
    def __call__(self, Index: int = -1) -> str: ...
    def __getitem__(self, index: int) -> str: ...

class _moxPrinter_PaperMediaName:
    """Name of the media type at Index (-1 is the selected one); empty outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMediaName: ...
    def __call__(self, Index: int = -1) -> str: ...
    def __getitem__(self, index: int) -> str: ...

class _moxPrinter_PaperMediaType:
    """Driver's code of the media type at Index (-1 is the selected one); 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMediaType: ...
    def __call__(self, Index: int = -1) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PaperMediaTypeIndex:
    """Index of the first media type with this code, -1 if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMediaTypeIndex: ...
    def __call__(self, MediaType: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PaperBinIndex:
    """Index of the first bin with this code, -1 if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperBinIndex: ...
    def __call__(self, PaperBinConst: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PaperIndex:
    """Index of the first paper with this code, -1 if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperIndex: ...
    def __call__(self, PaperConst: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PaperMaxHeight:
    """Height of the largest paper in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMaxHeight: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_PaperMaxWidth:
    """Width of the largest paper in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMaxWidth: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_PaperMinHeight:
    """Height of the smallest paper in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMinHeight: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_PaperMinWidth:
    """Width of the smallest paper in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperMinWidth: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_ScaleHeight:
    """Height of the printable area in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_ScaleHeight: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_ScaleWidth:
    """Width of the printable area in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_ScaleWidth: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_PaperHeight:
    """Height of the paper at Index (-1 is the selected one) in ScaleUnit (-1 is ScaleMode); 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperHeight: ...
    def __call__(self, Index: int = -1, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: int | tuple[Any, ...]) -> float: ...

class _moxPrinter_PaperHeightUser:
    """Height of the user-defined paper in ScaleUnit (-1 is ScaleMode); 0 if the printer has none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperHeightUser: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...
    def __set__(self, object: Any, value: float) -> None: ...
    def __setitem__(self, index: mox.enums.PRN_UNIT | int, value: float) -> None: ...

class _moxPrinter_PaperWidthUser:
    """Width of the user-defined paper in ScaleUnit (-1 is ScaleMode); 0 if the printer has none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperWidthUser: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...
    def __set__(self, object: Any, value: float) -> None: ...
    def __setitem__(self, index: mox.enums.PRN_UNIT | int, value: float) -> None: ...

class _moxPrinter_PrintOffsetX:
    """Unprintable margin at the left edge in ScaleUnit; coordinates start behind it"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PrintOffsetX: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_PaperType:
    """Driver's code of the paper at Index; 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperType: ...
    def __call__(self, Index: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PaperName:
    """Name of the paper at Index (-1 is the selected one); empty outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperName: ...
    def __call__(self, Index: int = -1) -> str: ...
    def __getitem__(self, index: int) -> str: ...

class _moxPrinter_PaperWidth:
    """Width of the paper at Index (-1 is the selected one) in ScaleUnit (-1 is ScaleMode); 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperWidth: ...
    def __call__(self, Index: int = -1, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: int | tuple[Any, ...]) -> float: ...

class _moxPrinter_Height:
    """Height of the whole sheet in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_Height: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_TextHeight:
    """Height of the text in the current font in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_TextHeight: ...
    def __call__(self, Text: str, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: str | tuple[Any, ...]) -> float: ...

class _moxPrinter_PaperBinType:
    """Driver's code of the bin at Index (-1 is the selected one); 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PaperBinType: ...
    def __call__(self, Index: int = -1) -> int: ...
    def __getitem__(self, index: int) -> int: ...

class _moxPrinter_PrintOffsetY:
    """Unprintable margin at the upper edge in ScaleUnit; coordinates start below it"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_PrintOffsetY: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_CurrentY:
    """Vertical part of the current position in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_CurrentY: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...
    def __set__(self, object: Any, value: float) -> None: ...
    def __setitem__(self, index: mox.enums.PRN_UNIT | int, value: float) -> None: ...

class _moxPrinter_DPI_Horizontal:
    """Horizontal dots per inch; with RealPhysical False the requested ones where the settings name them"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_DPI_Horizontal: ...
    def __call__(self, RealPhysical: bool = True) -> int: ...
    def __getitem__(self, index: bool) -> int: ...

class _moxPrinter_DPI_Vertical:
    """Vertical dots per inch; with RealPhysical False the requested ones where the settings name them"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_DPI_Vertical: ...
    def __call__(self, RealPhysical: bool = True) -> int: ...
    def __getitem__(self, index: bool) -> int: ...

class _moxPrinter_DrawWidth:
    """Width of lines in ScaleUnit (-1 is ScaleMode), never below 1 in any unit; 0 if the device cannot be opened"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_DrawWidth: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...
    def __set__(self, object: Any, value: float) -> None: ...
    def __setitem__(self, index: mox.enums.PRN_UNIT | int, value: float) -> None: ...

class _moxPrinter_CurrentX:
    """Horizontal part of the current position in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_CurrentX: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...
    def __set__(self, object: Any, value: float) -> None: ...
    def __setitem__(self, index: mox.enums.PRN_UNIT | int, value: float) -> None: ...

class _moxPrinter_Width:
    """Width of the whole sheet in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_Width: ...
    def __call__(self, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: mox.enums.PRN_UNIT | int) -> float: ...

class _moxPrinter_TextWidth:
    """Width of the text in the current font in ScaleUnit (-1 is ScaleMode)"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxPrinter_TextWidth: ...
    def __call__(self, Text: str, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> float: ...
    def __getitem__(self, index: str | tuple[Any, ...]) -> float: ...

class moxPrinter(mox.Object):
    """One printer, from moxPrinters.Printer; its device is opened at first need and kept open"""
    def DrawText2(self, Text: str, X: float, Y: float, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> bool:
        """Writes the text at X, Y in ScaleUnit (-1 is ScaleMode); starts a document if none is open"""
    @property
    def Font(self) -> mox.StdFont:
        """The font object of the page; changes made in it take effect at once; Nothing if the device cannot be opened"""
    @Font.setter
    def Font(self, value: mox.StdFont | None) -> None: ...
    def GetPrintJobStatus(self, PrintJobID: int, PagesWaiting: int | mox.ByRef, PagesPrinted: int | mox.ByRef) -> mox.enums.PRN_JOBSTATUS:
        """State of the job that StartDoc named, with its number of pages and of pages printed"""
    def DEVMODE_BYTES_GET(self, dmBytes: bytes | mox.ByRef) -> bool:
        """All settings as the driver's own bytes, to keep and give back later; False before the device was opened"""
    def DEVMODE_BYTES_SET(self, dmBytes: bytes | mox.ByRef) -> bool:
        """Takes bytes of DEVMODE_BYTES_GET back; False for another length or another driver version"""
    @property
    def PaperMedia(self) -> int:
        """Index of the selected media type"""
    @PaperMedia.setter
    def PaperMedia(self, value: int) -> None: ...
    @property
    def PaperBin(self) -> int:
        """Index of the selected paper bin"""
    @PaperBin.setter
    def PaperBin(self, value: int) -> None: ...
    PaperBinName: _moxPrinter_PaperBinName
    @property
    def PaperBins(self) -> int:
        """Number of paper bins"""
    PaperMediaName: _moxPrinter_PaperMediaName
    @property
    def PaperMedias(self) -> int:
        """Number of media types"""
    PaperMediaType: _moxPrinter_PaperMediaType
    PaperMediaTypeIndex: _moxPrinter_PaperMediaTypeIndex
    PaperBinIndex: _moxPrinter_PaperBinIndex
    PaperIndex: _moxPrinter_PaperIndex
    @property
    def ScaleMode(self) -> mox.enums.PRN_UNIT:
        """Unit of all members with a ScaleUnit of -1"""
    @ScaleMode.setter
    def ScaleMode(self, value: mox.enums.PRN_UNIT | int) -> None: ...
    def ShowPrinter(self, hWnd: int = 0) -> bool:
        """The driver's own settings dialog, owned by window hWnd; True if confirmed, the settings then hold"""
    PaperMaxHeight: _moxPrinter_PaperMaxHeight
    PaperMaxWidth: _moxPrinter_PaperMaxWidth
    PaperMinHeight: _moxPrinter_PaperMinHeight
    PaperMinWidth: _moxPrinter_PaperMinWidth
    def Resolution_Vertical(self, Index: int) -> int:
        """Vertical dots per inch of the resolution at Index, negative for a quality code; 0 outside the list"""
    @property
    def Resolutions(self) -> int:
        """Number of resolutions, or of quality codes for a printer without any"""
    def Resolution_Horizontal(self, Index: int) -> int:
        """Horizontal dots per inch of the resolution at Index, negative for a quality code; 0 outside the list"""
    @property
    def Tag(self) -> str:
        """Free text of the application; the library does not use it"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    @property
    def ZoomPercent(self) -> int:
        """Scaling of the output in per cent; 0 if the device cannot be opened"""
    @ZoomPercent.setter
    def ZoomPercent(self, value: int) -> None: ...
    @property
    def PrintQuality(self) -> int:
        """Dots per inch, or a negative quality code; 0 if the device cannot be opened"""
    @PrintQuality.setter
    def PrintQuality(self, value: int) -> None: ...
    @property
    def hWnd(self) -> int:
        """Printer handle, 0 if the device cannot be opened; not a window handle"""
    ScaleHeight: _moxPrinter_ScaleHeight
    ScaleWidth: _moxPrinter_ScaleWidth
    @property
    def Paper(self) -> int:
        """Index of the selected paper"""
    @Paper.setter
    def Paper(self, value: int) -> None: ...
    PaperHeight: _moxPrinter_PaperHeight
    PaperHeightUser: _moxPrinter_PaperHeightUser
    PaperWidthUser: _moxPrinter_PaperWidthUser
    PrintOffsetX: _moxPrinter_PrintOffsetX
    PaperType: _moxPrinter_PaperType
    @property
    def PaperSize(self) -> int:
        """Driver's code of the selected paper; 256 is the user-defined one"""
    @PaperSize.setter
    def PaperSize(self, value: int) -> None: ...
    PaperName: _moxPrinter_PaperName
    @property
    def Papers(self) -> int:
        """Number of papers"""
    PaperWidth: _moxPrinter_PaperWidth
    def DrawRectangle(self, Left: float, Top: float, Width: float, Height: float, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> bool:
        """Rectangle with outline in ForeColor and the fill of FillStyle, in ScaleUnit; starts a document if none is open"""
    @property
    def FillColor(self) -> int:
        """Colour of filled rectangles, as a direct colour"""
    @FillColor.setter
    def FillColor(self, value: int) -> None: ...
    @property
    def FillStyle(self) -> mox.enums.PRN_BACKSTYLE:
        """Whether rectangles are filled with FillColor"""
    @FillStyle.setter
    def FillStyle(self, value: mox.enums.PRN_BACKSTYLE | int) -> None: ...
    @property
    def ForeColor(self) -> int:
        """Colour of text, lines and outlines, in the form it was given"""
    @ForeColor.setter
    def ForeColor(self, value: int) -> None: ...
    @property
    def hDC(self) -> int:
        """Device context of the printer for drawing of one's own; 0 if the device cannot be opened"""
    Height: _moxPrinter_Height
    TextHeight: _moxPrinter_TextHeight
    @property
    def TwipsPerPixelX(self) -> float:
        """Twips for each horizontal pixel of the device; 2.4 at 600 dots per inch"""
    PaperBinType: _moxPrinter_PaperBinType
    def EndDoc(self) -> bool:
        """Ends page and document and leaves the job to the spooler; False if no document was open or that failed"""
    @property
    def FontAngle(self) -> int:
        """Direction of text in tenths of a degree"""
    @FontAngle.setter
    def FontAngle(self, value: int) -> None: ...
    @property
    def FontBold(self) -> bool:
        """True if the current font is bold"""
    @FontBold.setter
    def FontBold(self, value: bool) -> None: ...
    @property
    def FontItalic(self) -> bool:
        """True if the current font is italic"""
    @FontItalic.setter
    def FontItalic(self, value: bool) -> None: ...
    @property
    def FontName(self) -> str:
        """Face name of the current font; Arial at the start"""
    @FontName.setter
    def FontName(self, value: str) -> None: ...
    @property
    def FontSize(self) -> float:
        """Size of the current font in points; 10 at the start"""
    @FontSize.setter
    def FontSize(self, value: float) -> None: ...
    @property
    def FontStrikethru(self) -> bool:
        """True if the current font is struck out"""
    @FontStrikethru.setter
    def FontStrikethru(self, value: bool) -> None: ...
    @property
    def FontUnderline(self) -> bool:
        """True if the current font is underlined"""
    @FontUnderline.setter
    def FontUnderline(self, value: bool) -> None: ...
    def DrawLine(self, X1: float, Y1: float, X2: float, Y2: float, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> bool:
        """Line between two points in ScaleUnit; the position ends at the second; starts a document if none is open"""
    @property
    def Orientation(self) -> mox.enums.PRN_ORIENTATION:
        """Portrait or landscape"""
    @Orientation.setter
    def Orientation(self, value: mox.enums.PRN_ORIENTATION | int) -> None: ...
    def DrawPicture(self, Picture: mox.StdPicture | None, Left: float, Top: float, Width: float, Height: float, ScaleUnit: mox.enums.PRN_UNIT | int = -1) -> bool:
        """Stretches a bitmap picture into the rectangle, in ScaleUnit; False for icons and metafiles"""
    PrintOffsetY: _moxPrinter_PrintOffsetY
    def StartDoc(self, DocName: str = "") -> int:
        """Begins a document of this name with its first page; the job id, 0 on failure"""
    def DrawText(self, Text: str) -> bool:
        """Writes the text at the current position, which does not move; starts a document if none is open"""
    @property
    def BackColor(self) -> int:
        """Background colour behind text, as the device context has it"""
    @BackColor.setter
    def BackColor(self, value: int) -> None: ...
    @property
    def BackStyle(self) -> mox.enums.PRN_BACKSTYLE:
        """Whether the background behind text is painted"""
    @BackStyle.setter
    def BackStyle(self, value: mox.enums.PRN_BACKSTYLE | int) -> None: ...
    @property
    def Collate(self) -> bool:
        """True if several copies come out as complete sets"""
    @Collate.setter
    def Collate(self, value: bool) -> None: ...
    @property
    def ColorMode(self) -> mox.enums.PRN_COLORMODE:
        """Whether the printer prints in colour"""
    @ColorMode.setter
    def ColorMode(self, value: mox.enums.PRN_COLORMODE | int) -> None: ...
    @property
    def Colors(self) -> float:
        """Number of colours of the device; 0 if it cannot be opened"""
    @property
    def Copies(self) -> int:
        """Number of copies of each page"""
    @Copies.setter
    def Copies(self, value: int) -> None: ...
    CurrentY: _moxPrinter_CurrentY
    DPI_Horizontal: _moxPrinter_DPI_Horizontal
    DPI_Vertical: _moxPrinter_DPI_Vertical
    @property
    def DrawMode(self) -> mox.enums.DrawModeConstants:
        """How drawn colours mix with those below, raster operation 1 to 16; 13 copies"""
    @DrawMode.setter
    def DrawMode(self, value: mox.enums.DrawModeConstants | int) -> None: ...
    @property
    def DrawStyle(self) -> mox.enums.DrawStyleConstants:
        """Style of lines: 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none, 6 inside the frame"""
    @DrawStyle.setter
    def DrawStyle(self, value: mox.enums.DrawStyleConstants | int) -> None: ...
    DrawWidth: _moxPrinter_DrawWidth
    @property
    def Duplex(self) -> mox.enums.PRN_DUPLEX:
        """How both sides are printed; 0 if the printer does not tell"""
    @Duplex.setter
    def Duplex(self, value: mox.enums.PRN_DUPLEX | int) -> None: ...
    @property
    def DuplexSupported(self) -> bool:
        """True if the printer can print on both sides"""
    CurrentX: _moxPrinter_CurrentX
    @property
    def Clipping(self) -> mox.enums.PRN_CLIPPINGSUPPORT:
        """How well the device clips output to a region"""
    @property
    def FriendlyName(self) -> str:
        """Name for display; a network printer as share with the server in brackets"""
    def KillDoc(self) -> bool:
        """Throws the open document away; False if none was open or that failed"""
    @property
    def MaxCopies(self) -> int:
        """Largest number of copies the printer makes by itself, at least 1"""
    def NewPage(self) -> bool:
        """Ends the page and begins the next; before any drawing it opens the first page; False on failure"""
    @property
    def LandscapeOrientation(self) -> mox.enums.PRN_LANDSCAPEORIENT:
        """Which way the printer turns the page for landscape"""
    @property
    def Name(self) -> str:
        """Name of the printer as in the list"""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Driver(self) -> str:
        """Name of the driver as in the list"""
    @property
    def Port(self) -> str:
        """Port of the printer as in the list"""
    @property
    def TwipsPerPixelY(self) -> float:
        """Twips for each vertical pixel of the device; 2.4 at 600 dots per inch"""
    Width: _moxPrinter_Width
    TextWidth: _moxPrinter_TextWidth

class _moxColors_SystemColor:
    """A colour of the system or its visual style, or of the task pane; an unknown eColor gives 0"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxColors_SystemColor: ...
    def __call__(self, eColor: mox.enums.moX_DRAW_SYSCOLOR | int) -> int: ...
    def __getitem__(self, index: mox.enums.moX_DRAW_SYSCOLOR | int) -> int: ...

class moxColors(mox.Object):
    """Colour conversions and system colours, from moxDrawing.Colors"""
    def HTML2RGB(self, htmlColor: str) -> int:
        """Colour of an HTML text with six or three hexadecimal digits, with or without #; another length gives black"""
    def RGB2HTML(self, Color: int) -> str:
        """HTML text of a colour: # and six upper case hexadecimal digits"""
    def CMY2RGB(self, Cyan: int, Magenta: int, Yellow: int) -> int:
        """Packed colour of three inks; only the low byte of each counts"""
    def CMY2RGB2(self, CMY: mox.moX_CMY | mox.ByRef) -> int:
        """As CMY2RGB, from a record"""
    def CMYK2RGB(self, Cyan: int, Magenta: int, Yellow: int, BlacK: int) -> int:
        """Packed colour of three inks and black, 0 to 255 each"""
    def CMYK2RGB2(self, CMYK: mox.moX_CMYK | mox.ByRef) -> int:
        """As CMYK2RGB, from a record"""
    def ConvertOleColor(self, Color: int) -> int:
        """The direct colour behind a system colour; a direct colour comes back unchanged"""
    def HSL2RGB2(self, HSL: mox.moX_HSL | mox.ByRef, bValidate: bool = True) -> int:
        """As HSL2RGB, from a record, which is not changed"""
    def HSLValidate2(self, HSL: mox.moX_HSL | mox.ByRef) -> None:
        """As HSLValidate, in a record"""
    def RGB2CMY(self, Color: int, Cyan: int | mox.ByRef, Magenta: int | mox.ByRef, Yellow: int | mox.ByRef) -> None:
        """Splits a colour into three inks, 0 to 255 each"""
    def RGB2CMY2(self, Color: int) -> mox.moX_CMY:
        """As RGB2CMY, into a record"""
    def RGB2CMYK(self, Color: int, Cyan: int | mox.ByRef, Magenta: int | mox.ByRef, Yellow: int | mox.ByRef, BlacK: int | mox.ByRef) -> None:
        """Splits a colour into three inks and black, 0 to 255 each; black gives 255 in all four"""
    def RGB2CMYK2(self, Color: int) -> mox.moX_CMYK:
        """As RGB2CMYK, into a record"""
    def RGB2HSL(self, Color: int, Hue: int | mox.ByRef, Saturation: int | mox.ByRef, Luminance: int | mox.ByRef) -> None:
        """Splits a colour into degrees and per cent; for a grey Hue and Saturation are not written"""
    SystemColor: _moxColors_SystemColor
    def GrayScale(self, Color: int) -> int:
        """The grey of the same brightness, weighted by channel"""
    def HSLValidate(self, Hue: int | mox.ByRef, Saturation: int | mox.ByRef, Luminance: int | mox.ByRef) -> None:
        """Brings Hue into 0 to 359 by full turns and holds the other two to 0 to 100 per cent"""
    def RGB2HSL2(self, Color: int) -> mox.moX_HSL:
        """As RGB2HSL, into a record; a grey has Hue 0 and Saturation 0"""
    def RGBSplit(self, Color: int, Red: int | mox.ByRef, Green: int | mox.ByRef, Blue: int | mox.ByRef) -> None:
        """The red, green and blue channels, 0 to 255 each"""
    def HSL2RGB(self, Hue: int, Saturation: int, Luminance: int, bValidate: bool = True) -> int:
        """Packed colour from degrees and per cent; without bValidate a hue outside 0 to 360 gives 0"""

class moxOffscreenBuffer(mox.Object):
    """Memory bitmap with a device context; empty until Init succeeds"""
    @property
    def BackColor(self) -> int:
        """Colour that Cls fills with; white at the start"""
    @BackColor.setter
    def BackColor(self, value: int) -> None: ...
    def Cls(self) -> None:
        """Fills the whole buffer with BackColor; nothing happens in an empty buffer"""
    def CreateOlePicture(self, xSrc: int | mox.ByRef = 0, ySrc: int | mox.ByRef = 0, cxSrc: int | mox.ByRef = 0, cySrc: int | mox.ByRef = 0) -> mox.StdPicture:
        """Picture of a part of the buffer, in pixels; a source size of 0 means that of the buffer"""
    @property
    def CX(self) -> int:
        """Width in pixels, 16 before the first Init"""
    @property
    def CY(self) -> int:
        """Height in pixels, 16 before the first Init"""
    def Init(self, CX: int, CY: int, BackColor: int = 16777215) -> bool:
        """Makes a new bitmap of CX by CY pixels, filled with BackColor; the old content is lost; False on failure"""
    @property
    def hBmp(self) -> int:
        """Handle of the bitmap, which must stay selected; 0 in an empty buffer"""
    @property
    def hDC(self) -> int:
        """Device context to draw into; it stays the buffer's; 0 in an empty buffer"""
    def Render(self, hDC: int | mox.ByRef, X: int | mox.ByRef, Y: int | mox.ByRef, CX: int | mox.ByRef, CY: int | mox.ByRef, xSrc: int | mox.ByRef = 0, ySrc: int | mox.ByRef = 0, cxSrc: int | mox.ByRef = 0, cySrc: int | mox.ByRef = 0) -> None:
        """Copies a part of the buffer to hDC in pixels, stretched if sizes differ; a source size of 0 takes CX, CY"""

class moxScreenShot(mox.Object):
    """Screen copies, from moxDrawing.ScreenShot"""
    def OffscreenBufferFromDesktop(self, X: int, Y: int, CX: int, CY: int) -> mox.moxOffscreenBuffer:
        """A part of the screen in a new buffer, in pixels"""
    def OffscreenBufferFromWindow(self, hWnd: int) -> mox.moxOffscreenBuffer:
        """The whole window with frame and caption in a new buffer"""
    def PictureFromWindow(self, hWnd: int) -> mox.StdPicture:
        """The whole window with frame and caption as a picture"""
    def PictureFromDesktop(self, X: int, Y: int, CX: int, CY: int) -> mox.StdPicture:
        """A part of the screen as a picture, in pixels"""

class moxDrawing(mox.Object):
    """Entry to the drawing services, from moxHub.Drawing"""
    def CreatePatternBrush(self, ColorA: int | mox.ByRef, ColorB: int | mox.ByRef, szPattern: int = 8) -> int:
        """Brush with a checkerboard of two colours, squares of 1 to 256 pixels; the caller frees it; 0 on failure"""
    @property
    def BitmapFilter(self) -> mox.moxBitmapFilter:
        """Filters that turn a bitmap picture into a new one"""
    @property
    def Colors(self) -> mox.moxColors:
        """Colour conversions and system colours"""
    def DrawSystemIcon(self, eIcon: mox.enums.moX_DRAW_SYSICON | int, hDC: int, X: int = 0, Y: int = 0, CX: int = 0, CY: int = 0, AlphaTransparency: int = 0) -> bool:
        """Draws an icon of the system at X, Y in pixels; a size of 0 is its own; transparency 0 opaque to 255 invisible"""
    def FillRect(self, hDC: int, rcFill: mox.RECT | mox.ByRef, FillColor: int) -> None:
        """Fills the rectangle, right and lower edge left out; a negative FillColor is a system colour"""
    def FillRect2(self, hDC: int, X1: int, Y1: int, X2: int, Y2: int, FillColor: int) -> None:
        """As FillRect, with the edges as four values"""
    def BitmapFromByteArray(self, BitmapBytes: bytes | mox.ByRef) -> mox.StdPicture:
        """Picture from the bytes that BitmapToByteArray made; Nothing if they are no picture"""
    def BitmapToByteArray(self, objBitmap: mox.StdPicture | None, BitmapBytes: bytes | mox.ByRef) -> bool:
        """Stores a picture as bytes that can be kept anywhere; False on failure"""
    def CreateOlePictureFromHIcon(self, hIcon: int) -> mox.StdPicture:
        """Picture that takes over the icon handle; 0 gives Nothing"""
    def DrawIcon(self, objPicture: mox.StdPicture | None, hDC: int, X: int = 0, Y: int = 0, CX: int = 0, CY: int = 0, AlphaTransparency: int = 0) -> bool:
        """Draws an icon picture at X, Y in pixels; a size of 0 is its own; False for other pictures"""
    def DrawLine(self, hDC: int, X1: int, Y1: int, X2: int, Y2: int, LineSize: int = 1, LineColor: int = 0) -> bool:
        """Line from X1, Y1 to X2, Y2, LineSize pixels wide; a negative LineColor is a system colour"""
    def DrawMetaFile(self, objPicture: mox.StdPicture | None, hDC: int, X: int = 0, Y: int = 0, CX: int = 0, CY: int = 0, AlphaTransparency: int = 0) -> bool:
        """Plays a metafile picture into a rectangle in pixels; a size of 0 is its own; False for other pictures"""
    def DrawPicture(self, objPicture: mox.StdPicture | None, hDC: int, X: int = 0, Y: int = 0, CX: int = 0, CY: int = 0, AlphaTransparency: int = 0) -> bool:
        """Draws a bitmap, icon or metafile picture by its kind, in pixels; a size of 0 is its own"""
    def DrawRect(self, hDC: int, rcDraw: mox.RECT | mox.ByRef, BorderSize: int = 1, BorderColor: int = 0, bFilled: bool = False, FillColor: int = 16777215) -> bool:
        """Rectangle with border and fill, BorderSize in pixels; False if it has neither"""
    def DrawRect2(self, hDC: int, X1: int, Y1: int, X2: int, Y2: int, BorderSize: int = 1, BorderColor: int = 0, bFilled: bool = False, FillColor: int = 16777215) -> bool:
        """As DrawRect, with the edges as four values"""
    def DrawTextF(self, hDC: int, X1: int, Y1: int, X2: int | mox.ByRef, Y2: int | mox.ByRef, Text: str, TextColor: int, TextFormat: mox.enums.moX_DRAW_TXT_FMT | int, Font: mox.StdFont | None, Degree: int = 0, bUseClearType: bool = True, bUseShadow: bool = False, ShadowColor: int = 8421504, bModifyX2Y2: bool = False) -> int:
        """Text in a rectangle in the font object, or with Nothing in the font of hDC; -1 if drawn, 0 if not"""
    @property
    def Font(self) -> mox.moxFont:
        """Font objects, text measuring and font lists"""
    def PictureGetSize(self, objPicture: mox.StdPicture | None) -> mox.Size:
        """Size of the picture in screen pixels; Nothing or an empty picture gives 0, 0"""
    def DrawBitmap(self, objPicture: mox.StdPicture | None, hDC: int, X: int = 0, Y: int = 0, CX: int = 0, CY: int = 0, xSrc: int = 0, ySrc: int = 0, cxSrc: int = 0, cySrc: int = 0, bTile: bool = False, DrawTransparent: bool = False, TransparentColor: int = 16711935, AlphaTransparency: int = 0) -> bool:
        """Draws part of a bitmap picture in pixels, stretched or tiled; AlphaTransparency 0 opaque to 255 invisible"""
    def CreateOlePictureFromDC(self, hDC: int, xSrc: int, ySrc: int, cxSrc: int, cySrc: int) -> mox.StdPicture:
        """Picture of a rectangle of the device context, in pixels"""
    def CreateOlePictureFromHBitmap(self, hBitmap: int, hPal: int = 0) -> mox.StdPicture:
        """Picture that takes over the bitmap handle; 0 gives Nothing"""
    def CreateOffscreenBuffer(self, CX: int, CY: int, BackColor: int = 16777215) -> mox.moxOffscreenBuffer:
        """New buffer of CX by CY pixels filled with BackColor; on failure its hDC is 0"""
    def DrawText(self, hDC: int, X1: int, Y1: int, X2: int | mox.ByRef, Y2: int | mox.ByRef, Text: str, TextColor: int, TextFormat: mox.enums.moX_DRAW_TXT_FMT | int, FontName: str = "", FontSize: float = 0, FontSizeUnit: mox.enums.MOX_SCALEUNIT | int = mox.suPOINTS, FontBold: bool = False, FontItalic: bool = False, FontUnderline: bool = False, FontStrikeThrough: bool = False, Degree: int = 0, bUseClearType: bool = True, bUseShadow: bool = False, ShadowColor: int = 8421504, bModifyX2Y2: bool = False) -> bool:
        """Text in a rectangle in a font made for the call; no FontName or FontSize keeps that of hDC; False if not drawn"""
    @property
    def ScreenShot(self) -> mox.moxScreenShot:
        """Copies of the screen and of windows"""

class moxBitmapFilter(mox.Object):
    """Bitmap filters, from moxDrawing.BitmapFilter"""
    def Brightness(self, inPicture: mox.StdPicture | None, Factor: int = 0) -> mox.StdPicture:
        """Lighter or darker picture, Factor -255 nearly black to 255 white; 256 and more gives Nothing"""
    def Contrast(self, inPicture: mox.StdPicture | None, Factor: int = 0) -> mox.StdPicture:
        """Softer or harder picture, Factor from -50 up; 0 changes little"""
    def Emboss(self, inPicture: mox.StdPicture | None, Factor: int = 1) -> mox.StdPicture:
        """Relief lit from one of eight directions, the low three bits of Factor; the outermost pixels stay"""
    def GrayScale(self, inPicture: mox.StdPicture | None, RedFactor: int = 71, GreenFactor: int = 707, BlueFactor: int = 222) -> mox.StdPicture:
        """Grey picture by factors in thousandths; RedFactor weighs blue and BlueFactor red; above 1000 in all it wraps"""
    def HSL(self, inPicture: mox.StdPicture | None, bChangeHue: bool = False, HueValue: int = 0, bChangeSaturation: bool = False, SaturationValue: int = 128, bChangeBrightness: bool = False, Brightness: int = 128) -> mox.StdPicture:
        """Gives all pixels one hue or saturation, or scales lightness with 128 as 1; only what is switched on"""
    def Invert(self, inPicture: mox.StdPicture | None) -> mox.StdPicture:
        """Negative of the picture"""
    def Neon(self, inPicture: mox.StdPicture | None, Factor: int = 10, Mode: int = 0, bBW: bool = False) -> mox.StdPicture:
        """Wave-like colour play; Factor shifts it, the low two bits of Mode choose the curve, bBW makes it grey"""
    def BlackAndWhite(self, inPicture: mox.StdPicture | None, Factor: int = 128, BlackColor: int = 0, WhiteColor: int = 16777215) -> mox.StdPicture:
        """Two colours: BlackColor below the grey value Factor, WhiteColor from it on"""
    def RGB(self, inPicture: mox.StdPicture | None, RedOffset: int = 0, GreenOffset: int = 0, BlueOffset: int = 0, Overlap: bool = False) -> mox.StdPicture:
        """Adds an offset to each channel, held to 255, or wrapping around with Overlap"""

class _moxFont_PrinterFonts:
    """Fonts of the printer with this device context, listed again when another context is given"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFont_PrinterFonts: ...
    def __call__(self, PrnDC: int) -> mox.moxFontEnumeration: ...
    def __getitem__(self, index: int) -> mox.moxFontEnumeration: ...

class moxFont(mox.Object):
    """Font services, from moxDrawing.Font"""
    def CreateDefaultFont(self, Index: mox.enums.FONT_DEFAULT_TYPE | int) -> mox.StdFont:
        """New font object as the system uses it at this place; a plain font object if the system does not tell"""
    def CreateFont(self, Name: str, Size: float = 10.0, Bold: bool = False, Italic: bool = False, Underline: bool = False, Strikethrough: bool = False) -> mox.StdFont:
        """New font object, Size in points; a name that the system refuses leaves the default one"""
    def GetTextExtent(self, Text: str, Font: mox.StdFont | None, bUseMnemonic: bool = False, bExpandTabs: bool = True, bUseClearType: bool = True, Zoomfactor: float = 1.0, Angle10: int = 0) -> mox.Size:
        """Size of the text in screen pixels, Angle10 in tenths of a degree; an empty text has the height of a line"""
    def Clone(self, Font2Clone: mox.StdFont | None) -> mox.StdFont:
        """New font object with name, size and the four styles of the given one; the character set is not copied"""
    def CopyProperties(self, srcFont: mox.StdFont | None, dstFont: mox.StdFont | None) -> None:
        """Copies name, size and the four styles between two font objects"""
    def IsEqual(self, FontA: mox.StdFont | None, FontB: mox.StdFont | None) -> bool:
        """True if name, size and the four styles agree, case of the name included, or both are Nothing"""
    PrinterFonts: _moxFont_PrinterFonts
    @property
    def ScreenFonts(self) -> mox.moxFontEnumeration:
        """Fonts of the screen, listed once"""

class _moxFontEnumeration_Family:
    """Look of the font at Index; 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFontEnumeration_Family: ...
    def __call__(self, Index: int) -> mox.enums.moX_FONT_FAMILY: ...
    def __getitem__(self, index: int) -> mox.enums.moX_FONT_FAMILY: ...

class _moxFontEnumeration_Name:
    """Face name of the font at Index; empty outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFontEnumeration_Name: ...
    def __call__(self, Index: int) -> str: ...
    def __getitem__(self, index: int) -> str: ...

class _moxFontEnumeration_Pitch:
    """Width of the characters of the font at Index; 0 outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFontEnumeration_Pitch: ...
    def __call__(self, Index: int) -> mox.enums.moX_FONT_PITCH: ...
    def __getitem__(self, index: int) -> mox.enums.moX_FONT_PITCH: ...

class _moxFontEnumeration_Symbol:
    """True if the font at Index holds symbols; False outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFontEnumeration_Symbol: ...
    def __call__(self, Index: int) -> bool: ...
    def __getitem__(self, index: int) -> bool: ...

class moxFontEnumeration(mox.Object):
    """Font list, from moxFont.ScreenFonts or moxFont.PrinterFonts"""
    @property
    def Count(self) -> int:
        """Number of entries; Index runs from 0 to Count - 1"""
    Family: _moxFontEnumeration_Family
    Name: _moxFontEnumeration_Name
    Pitch: _moxFontEnumeration_Pitch
    Symbol: _moxFontEnumeration_Symbol

class _moxForm_Transparency:
    """Transparency of a window, 0 opaque to 255 invisible; 0 for other handles"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxForm_Transparency: ...
    def __call__(self, hWndForm: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...
    def __set__(self, object: Any, value: int) -> None: ...
    def __setitem__(self, index: int, value: int) -> None: ...

class moxForm(mox.Object):
    """Form helpers, from moxHub.Form"""
    @property
    def BlendingSupported(self) -> bool:
        """True if the system can blend windows, from Windows XP on"""
    def InitCommonControls(self, bExControls: bool = False) -> bool:
        """Starts the common controls, with bExControls all classes; True if the system has the extended call"""
    def RoundContainedControlsToPix(self, ParentForm: mox.Object | None | mox.ByRef, SetScrollBarStandardSize: bool = True) -> None:
        """Snaps the controls of a form to whole pixels and gives scroll bars the system's thickness"""
    def SetTopLevel(self, Form2Set: mox.Object | None | mox.ByRef, bTopLevel: bool) -> None:
        """Keeps a form above all others, or ends that; objects that are no forms are ignored"""
    def Blend(self, hWndForm: int, ResultTransparency: int, Speed: mox.enums.MOX_FRM_BLENDSPEED | int = mox.moxbls_MEDIUM) -> mox.enums.MOX_FRM_BLENDRESULT:
        """Changes the transparency in steps, 0 opaque to 255 invisible; at 255 the window ends hidden; blocks the caller"""
    def Center(self, Form2Center: mox.Object | None | mox.ByRef, RelativeForm: mox.Object | None | mox.ByRef = None, Center2WorkArea: bool = True, CorrectIfOutside: bool = True) -> None:
        """Moves a normal form to the middle of the screen, its work area or another form, and back inside where wanted"""
    Transparency: _moxForm_Transparency
    def TransparencySupported(self) -> bool:
        """True if the system has transparent windows, from Windows XP on"""

class moxTimer(mox.Object):
    """Timer with an event, also from moxControls.CreateTimerObject"""
    @property
    def MaxInterval(self) -> int:
        """Longest interval in milliseconds, 2147483647"""
    @property
    def MinInterval(self) -> int:
        """Shortest interval in milliseconds, 10"""
    @property
    def Running(self) -> bool:
        """True while the timer runs"""
    def StartTimer(self, Interval: int) -> bool:
        """Starts or restarts with an interval in milliseconds, at least 10; False if the system gives no timer"""
    def StopTimer(self) -> bool:
        """Stops the timer; True if it ran"""
    @property
    def Tag(self) -> str:
        """Free text of the application; the library does not use it"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...

class moxMouseEvents(mox.Object):
    """Mouse event watcher, also from moxControls.CreateMouseEventsObject"""
    @property
    def hWnd(self) -> int:
        """Handle of the watched window, 0 if there is none"""
    @hWnd.setter
    def hWnd(self, value: int) -> None: ...

class _moxCommonDialog_DefaultColor:
    """One of the 16 custom colours of the colour dialog, Index 0 to 15; any other gives 0"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxCommonDialog_DefaultColor: ...
    def __call__(self, Index: int) -> int: ...
    def __getitem__(self, index: int) -> int: ...
    def __set__(self, object: Any, value: int) -> None: ...
    def __setitem__(self, index: int, value: int) -> None: ...

class moxCommonDialog(mox.Object):
    """Standard dialogs, from moxHub.CommonDialog"""
    DefaultColor: _moxCommonDialog_DefaultColor
    def ShowBrowseForFolder(self, hWndOwner: int = 0, DlgTitle: str = "", DlgText: str = "", InitDir: str = "", bAllowRootSelect: bool = True, bAllowNetwork: bool = True, bShowCreateFolder: bool = True, bShowEditBox: bool = True, sErrMsgCreatePath: str = "", sErrMsgErrorCreatePath: str = "", sErrMsgInvalidChar: str = "") -> str:
        """Folder dialog that can create a typed folder; the path, empty on cancel; empty texts take defaults"""
    def ShowFont(self, cFont: mox.StdFont | None | mox.ByRef, cFontColor: int | mox.ByRef = 0, bShowSize: bool = True, bShowColor: bool = False, MinSize: int = 0, MaxSize: int = 0, FontType: mox.enums.SHOW_FONT_FONTTYPE | int = mox.sff_SCREENFONTS, PrinterDC: int = 0, hWndOwner: int = 0) -> bool:
        """Font dialog for cFont, made new if Nothing; MinSize and MaxSize in points, 0 for no limit; True if confirmed"""
    def ShowSelectColor(self, lInitColor: int, bFullOpen: bool = True, hWndOwner: int = 0) -> int:
        """Colour dialog starting at lInitColor, bFullOpen with the custom part; the colour, -1 on cancel"""
    def ShowOpenFile(self, Title: str = "", Filter: str = "", FilterIndex: int = 0, DefaultExt: str = "", InitDir: str = "", MultipleFiles: bool = False, ViewMode: mox.enums.OFN_InitialView | int = mox.iv_DEFAULT, hWndOwner: int = 0) -> str:
        """Open dialog, Filter as pairs of text and pattern with | between; folder|name|name for several; empty on cancel"""
    def ShowSaveFile(self, Title: str = "", Filter: str = "", FilterIndex: int = 0, FileName: str = "", DefaultExt: str = "", InitDir: str = "", Flags: int = 0, hWndOwner: int = 0) -> str:
        """Save dialog, Filter as in ShowOpenFile, Flags those of the system without hooks; empty on cancel"""

class moxFSFile(mox.Object):
    """File operations, from moxFS.File"""
    def CreateUniqueFileName(self, sBasePathFileName: str, sNumSep: str = " ", bBracketAllowed: bool = True) -> str:
        """The name if it is free, else with the first free counter from 2 on, as in Report (2).txt"""
    def DrawIcon(self, sFileName: str, hDC: int, X: int, Y: int, Size: mox.enums.MOX_FS_ICONSIZE | int, State: mox.enums.MOX_FS_ICONSTATE | int) -> bool:
        """Draws the shell icon of a file at X, Y of hDC in pixels; False on failure"""
    def GetExeFromFileExtension(self, sFileExt: str, bShortExeName: bool = False) -> str:
        """Program that opens files of this extension; empty if there is none"""
    def GetExeFromFileName(self, sFileName: str, bShortExeName: bool = False) -> str:
        """Program that opens this file, or files of its extension if it does not exist; empty if there is none"""
    def GetDateTime(self, sFileName: str) -> mox.MOX_FILEDATETIME:
        """The three times of the file; all 0 if it is not found"""
    def GetChecksum(self, sFileName: str, lMaxMBTaken: int = 100) -> int:
        """CRC-32 with start value 0 over at most the first lMaxMBTaken megabytes; 0 on failure"""
    def Copy(self, sPathFileSrc: str, sPathFileDest: str, bOverWriteExisting: bool = False) -> bool:
        """Copies a file to a path or into an existing folder; False if the target exists and may not be overwritten"""
    def Move(self, sPathFileSrc: str, sPathOrPathFileDest: str, bOverWriteExisting: bool = False) -> bool:
        """Moves a file to a path or into an existing folder; False if the target exists and may not be overwritten"""
    def GetDisplayName(self, sFileName: str) -> str:
        """Name as the shell shows it; empty on failure"""
    def SetDateTime(self, sFileName: str, FDT: mox.MOX_FILEDATETIME | mox.ByRef, bSetCreated: bool = True, bSetLastAccessed: bool = True, bSetLastModified: bool = True) -> bool:
        """Sets the chosen times and rewrites the others in whole seconds; False on failure"""
    def GetSize(self, sFileName: str) -> int:
        """Low 32 bits of the length in bytes, so negative from 2 GB on; 0 if the file cannot be opened"""
    def GetVersion(self, sFileName: str) -> mox.MOX_FILEVERSIONINFO:
        """Version in a program file; Available is False if it has none"""
    def SetAttributes(self, sFileName: str, eAttributes: mox.enums.MOX_FS_FILEATTRIBUTES | int) -> bool:
        """Sets archive, hidden, normal, read-only, system and temporary; other bits are ignored; False on failure"""
    def GetAttributes(self, sFileName: str) -> mox.enums.MOX_FS_FILEATTRIBUTES:
        """All attribute bits of the file; 0 if it does not exist"""
    def StripExtension(self, sPathFile: str) -> str:
        """The extension behind the last dot, without the dot; empty if there is none"""
    def StripFileName(self, sPathFile: str, bIncludeExtension: bool = True) -> str:
        """The file name part of a path, with or without its extension; empty for an existing folder"""
    def StripPath(self, sPathFile: str, Add_BackSlash: bool = True) -> str:
        """The folder part of a path, with or without the separator at its end"""
    def Rename(self, sPathFileOld: str, sFileNew: str, bOverWriteExisting: bool = False) -> bool:
        """Gives a file another name in its folder; False if the folder differs or the name is taken"""
    def Delete(self, sFileName: str, bAllowUndo: bool = True, bDeleteWriteProtected: bool = False, bConfirmDialog: bool = False) -> bool:
        """Deletes a file, with undo into the recycle bin; True if it is gone"""
    def Exists(self, sFileName: str) -> bool:
        """True if a file, a folder or a match of a pattern is found"""
    def GetShortPathFileName(self, sFileName: str) -> str:
        """The path in 8.3 form; empty if it does not exist"""
    def GetTypeName(self, sFileName: str) -> str:
        """Kind of file as the shell shows it; empty on failure"""

class _moxFSFolder_StripExtension:
    """The text behind the last dot of the whole path; empty if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFSFolder_StripExtension: ...
    def __call__(self, sPath: str) -> str: ...
    def __getitem__(self, index: str) -> str: ...

class _moxFSFolder_IsRootFolder:
    """True if there is no folder above it"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFSFolder_IsRootFolder: ...
    def __call__(self, sPath: str) -> bool: ...
    def __getitem__(self, index: str) -> bool: ...

class moxFSFolder(mox.Object):
    """Folder operations, from moxFS.Folder"""
    def Copy(self, sPath: str, sPathNew: str, bAllowUndo: bool = True, bConfirmDialog: bool = False, bShowProgress: bool = False) -> bool:
        """Copies a folder with all it holds to sPathNew; the shell's dialogs only where wanted; False on failure"""
    def Create(self, sPath: str) -> bool:
        """Creates the folder with all missing levels above it; True if it exists afterwards; needs a full path"""
    def Delete(self, sPath: str, bOnlySubFolderAndFiles: bool = False, bAllowUndo: bool = True, bConfirmDialog: bool = False) -> bool:
        """Deletes the folder, or only what it holds, with undo into the recycle bin; False on failure"""
    def GetDisplayName(self, sPath: str) -> str:
        """Name as the shell shows it; empty on failure"""
    def DrawIcon(self, sPath: str, hDC: int, X: int, Y: int, Size: mox.enums.MOX_FS_ICONSIZE | int, State: mox.enums.MOX_FS_ICONSTATE | int) -> bool:
        """Draws the shell icon of a folder at X, Y of hDC in pixels; False on failure"""
    def Exists(self, sPath: str) -> bool:
        """True if the folder exists; a text of one or two characters means a drive"""
    def Move(self, sPath: str, sPathNew: str, bAllowUndo: bool = True, bConfirmDialog: bool = False, bShowProgress: bool = False) -> bool:
        """Moves a folder with all it holds to sPathNew; the shell's dialogs only where wanted; False on failure"""
    def GetParentFolder(self, sPath: str) -> str:
        """The folder above, ending in a backslash; empty for a drive root"""
    def HasFiles(self, sPath: str, bIgnoreHidden: bool = True, bIgnoreSystem: bool = True) -> bool:
        """True if the folder holds a file, hidden and system ones left out where wanted"""
    def HasSubFolder(self, sPath: str, bIgnoreHidden: bool = True, bIgnoreSystem: bool = True) -> bool:
        """True if the folder holds a subfolder, hidden and system ones left out where wanted; leading dots never count"""
    def GetSpace(self, sPath: str) -> mox.MOX_FS_SPACEINFO:
        """Space of the volume that holds the folder, in bytes"""
    StripExtension: _moxFSFolder_StripExtension
    IsRootFolder: _moxFSFolder_IsRootFolder
    def GetAttributes(self, sPath: str) -> mox.enums.MOX_FS_FILEATTRIBUTES:
        """All attribute bits of the folder; 0 if it does not exist"""
    def GetDateTime(self, sPath: str) -> mox.MOX_FILEDATETIME:
        """The three times of the folder; all 0 if it is not found"""
    def Rename(self, sPath: str, sPathNew: str, bAllowUndo: bool = True) -> bool:
        """Renames a folder to another full path, which must be free; False on failure"""
    def SetAttributes(self, sPath: str, eAttributes: mox.enums.MOX_FS_FILEATTRIBUTES | int) -> bool:
        """Sets archive, hidden, normal, read-only, system and temporary; other bits are ignored; False on failure"""
    def GetShortPathName(self, sPath: str) -> str:
        """The path in 8.3 form; empty if it does not exist"""
    def GetTypeName(self, sPath: str) -> str:
        """Kind of folder as the shell shows it; empty on failure"""
    def CreateUniquePathName(self, sBasePathName: str, sNumSep: str = " ", bBracketAllowed: bool = True) -> str:
        """The path if it is free, else with the first free counter from 2 on, as in Backup (2)"""

class moxFS(mox.Object):
    """Entry to the file system services, from moxHub.FileSystem"""
    @property
    def Drives(self) -> mox.moxFSDrives:
        """Services for drives"""
    def FindFolder(self, sFolderName: str, sRootPath: str, bSearchInSubFolders: bool = False, lMaxSubFolderDepth: int = -1, bIgnoreHiddenFolder: bool = True) -> str:
        """Path of the first folder of a name or pattern, a depth of -1 for all levels; empty if there is none"""
    def FindFolderAndFiles(self, sRootPath: str, bSearchInSubFolders: bool = False, lMaxSubFolderDepth: int = -1, bIgnoreHiddenFolder: bool = True) -> mox.MOX_FS_FINDFF:
        """Lists a folder and its tree, a hidden root too; lMaxSubFolderDepth -1 for all levels; Count 0 if missing"""
    def GetFolderAndFiles(self, sRootPath: str, bSearchInSubFolders: bool = False, lMaxSubFolderDepth: int = -1, bIgnoreHiddenFolderAndFiles: bool = True) -> mox.MOX_FS_FINDFF:
        """Lists a folder and its tree, hidden ones left out where wanted; lMaxSubFolderDepth -1 for all levels"""
    @property
    def Folder(self) -> mox.moxFSFolder:
        """Services for folders"""
    def GetTempFile(self, sPrefix: str = "~", sSuffix: str = "tmp", sPath: str = "", bCreateFile: bool = False) -> str:
        """A free name in sPath, else in the temporary folder, created where wanted; empty on failure"""
    def MergeFiles(self, FirstFile: str, SecondFile: str, BlockSize: int = 1048576) -> bool:
        """Appends the second file to the first in blocks of BlockSize bytes; False on failure"""
    def GetStandardPath(self, ID: mox.enums.MOX_FS_STDPATH | int, Add_BackSlash: bool = True) -> str:
        """A standard folder, with or without a backslash at its end; an unknown ID gives an empty text"""
    @property
    def File(self) -> mox.moxFSFile:
        """Services for files"""
    def FindFile(self, sFileName: str, sRootPath: str, bSearchInSubFolders: bool = False, lMaxSubFolderDepth: int = -1, bIgnoreHiddenFolderAndFiles: bool = True) -> str:
        """Path of the first match of a name or pattern, a depth of -1 for all levels; empty if there is none"""

class moxFSDrives(mox.Object):
    """Drive list and drive facts, from moxFS.Drives"""
    def Count(self) -> int:
        """Number of drives in the list"""
    def Drive(self, Index: int) -> str:
        """Drive at Index, counted from 0, as letter and colon; empty outside the list"""
    def GetDriveType(self, sDrive: str) -> mox.enums.MOX_FS_DRIVETYPE:
        """Kind of the drive; told apart from a CD drive, a DVD drive gives DT_DVDROM"""
    def GetDisplayName(self, sDrive: str) -> str:
        """Name as the shell shows it; empty on failure"""
    def GetFileSystemName(self, sDrive: str) -> str:
        """Name of the file system on the medium, such as NTFS; empty on failure"""
    def GetSerial(self, sDrive: str) -> int:
        """Serial number of the volume; 0 on failure"""
    def GetTypeName(self, sDrive: str) -> str:
        """Kind of drive as the shell shows it; empty on failure"""
    def MediaPresent(self, sDrive: str) -> bool:
        """True if a medium is in the drive; always True for fixed and network drives"""
    def DrawIcon(self, sDrive: str, hDC: int, X: int, Y: int, Size: mox.enums.MOX_FS_ICONSIZE | int, State: mox.enums.MOX_FS_ICONSTATE | int) -> bool:
        """Draws the shell icon of a drive at X, Y of hDC in pixels; False on failure"""
    def GetSpace(self, sDrive: str) -> mox.MOX_FS_SPACEINFO:
        """Space on the drive in bytes; all 0 on failure"""
    def Update(self) -> bool:
        """Reads the list of drives again; True if it has changed"""
    def GetVolumeName(self, sDrive: str) -> str:
        """Label of the medium; empty on failure"""
    def SetVolumeName(self, sDrive: str, sVolumeName: str) -> bool:
        """Sets the label, at most 11 characters; True if it then reads back exactly"""

class moxFSWatcher(mox.Object):
    """Watcher for changes in a folder"""
    @property
    def MinWatchIntervalMS(self) -> int:
        """Shortest interval in milliseconds, 10"""
    @property
    def MaxWatchIntervalMS(self) -> int:
        """Longest interval in milliseconds, 2147483647"""
    @property
    def Running(self) -> bool:
        """True while a folder is watched"""
    @property
    def Tag(self) -> str:
        """Free text of the application; the library does not use it"""
    @Tag.setter
    def Tag(self, value: str) -> None: ...
    def StopWatcher(self) -> None:
        """Ends the watch; does nothing if there is none"""
    def StartWatcher(self, sPathName: str, bWatchSubTree: bool, eFilter: mox.enums.MOX_FSW_FILTER | int, WatchIntervalMS: int = 500) -> bool:
        """Watches a folder, polled every WatchIntervalMS milliseconds, 10 at least; ends a running watch; False on failure"""

class moxSystem(mox.Object):
    """System services, from moxHub.System"""
    def CreateGUID(self) -> str:
        """A new identifier in braces, upper case, 38 characters"""
    @property
    def Printers(self) -> mox.moxPrinters:
        """The installed printers"""
    def MutexRelease(self, hMutex: int) -> None:
        """Gives a mutex handle of MutexCreate back; 0 does nothing"""
    def MutexCreate(self, Mutex: str) -> int:
        """Handle of a new named mutex; -1 if the name is taken, 0 on failure; slashes in the name become hyphens"""
    @property
    def ComputerName(self) -> str:
        """Network name of the machine"""
    @property
    def Locale(self) -> mox.moxLocale:
        """Language, number, currency and date settings of the system"""
    def Delay(self, Tausendstel: int, Events: bool = True) -> None:
        """Waits a number of thousandths of a second, by default with messages and events running"""
    @property
    def Hardware(self) -> mox.moxHardwareInfo:
        """Facts about processor, memory, drives and other devices"""
    @property
    def Registry(self) -> mox.moxRegistry:
        """Application settings and any registry key"""
    @property
    def OS(self) -> mox.moxOSInfo:
        """Facts about the operating system"""
    @property
    def Office(self) -> mox.moxOfficeInfo:
        """Facts about installed Office versions"""
    @property
    def User(self) -> mox.moxUserInfo:
        """Facts about the current user"""
    def BeepEx(self, Sound: mox.enums.SYS_SYSTEMSOUND | int) -> bool:
        """Plays a sound of the system's sound scheme; False on failure"""
    def BeepExSpecial(self, Snd: mox.enums.SYS_SPECIALSOUND | int, bAsync: bool = True, bSetVolume: bool = True, LeftVolumePercent: int = 100, RightVolumePercent: int = 100) -> bool:
        """Plays a clip of the library, by default without waiting for its end; volumes in per cent; False on failure"""
    @property
    def Keyboard(self) -> mox.moxKeyboard:
        """Key strokes and the state of the shift keys"""
    @property
    def Mouse(self) -> mox.moxMouse:
        """Facts about the mouse and its buttons"""
    @property
    def Screen(self) -> mox.moxScreen:
        """Facts about the screen"""

class moxScreen(mox.Object):
    """Facts about the screen, from moxSystem.Screen"""
    @property
    def Colors(self) -> float:
        """Number of colours that the screen can show"""
    @property
    def DPI(self) -> mox.POINTAPI:
        """Dots per inch in both directions; 0 on failure"""
    @property
    def Monitors(self) -> int:
        """Number of monitors, at least 1"""
    @property
    def SizeVirtual(self) -> mox.Size:
        """Size in pixels of the area over all monitors"""
    @property
    def Size(self) -> mox.Size:
        """Size in pixels of the primary monitor"""
    @property
    def WorkArea(self) -> mox.RECT:
        """The primary monitor without task bars, in pixels; all 0 on failure"""

class moxKeyboard(mox.Object):
    """Key strokes, from moxSystem.Keyboard"""
    def SendCTRL(self, ShortCut: mox.enums.KeyCodeConstants | int) -> None:
        """Sends Ctrl and a key, such as vbKeyC; only the low 8 bits of the key code count"""
    def SendRETURN(self, bShift: bool = False) -> None:
        """Sends the Return key, with Shift held down where wanted"""
    def SendF(self, FK: mox.enums.KB_F | int, bShift: bool = False) -> None:
        """Sends a function key, with Shift held down where wanted"""
    def SendMENU(self, ShortCut: mox.enums.KeyCodeConstants | int) -> None:
        """Sends Alt and a key, such as vbKeyF4; only the low 8 bits of the key code count"""
    def SendTAB(self, bShift: bool = False) -> None:
        """Sends the Tab key, with Shift held down where wanted"""
    @property
    def ShiftState(self) -> int:
        """Keys that are down now, added together: 1 Shift, 2 Ctrl, 4 Alt"""

class _moxMouse_ButtonState:
    """Logical buttons that are down now, as in MOX_ME_BUTTON; the extra buttons only where wanted"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxMouse_ButtonState: ...
    def __call__(self, bAddXButtonState: bool = False) -> int: ...
    def __getitem__(self, index: bool) -> int: ...

class moxMouse(mox.Object):
    """Facts about the mouse, from moxSystem.Mouse"""
    @property
    def Present(self) -> bool:
        """True if there is a mouse with at least one button"""
    @property
    def Buttons(self) -> int:
        """Number of buttons, 0 without a mouse"""
    @property
    def ButtonsSwapped(self) -> bool:
        """True if left and right are swapped for left-handed use"""
    ButtonState: _moxMouse_ButtonState
    @property
    def WheelPresent(self) -> bool:
        """True if the mouse has a wheel"""

class _moxLocale_LanguageInfo:
    """A fact about language and country; empty if the system does not tell"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxLocale_LanguageInfo: ...
    def __call__(self, eInfo: mox.enums.LOCALE_INFO | int, eLocaleDefault: mox.enums.LOCALE_DEFAULT_TYPE | int = mox.ldt_SystemDefault) -> str: ...
    def __getitem__(self, index: mox.enums.LOCALE_INFO | int | tuple[Any, ...]) -> str: ...

class _moxLocale_NumbersInfo:
    """A fact about the writing of numbers; empty if the system does not tell"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxLocale_NumbersInfo: ...
    def __call__(self, eInfo: mox.enums.LOCALE_INFO_NUMBERS | int, eLocaleDefault: mox.enums.LOCALE_DEFAULT_TYPE | int = mox.ldt_SystemDefault) -> str: ...
    def __getitem__(self, index: mox.enums.LOCALE_INFO_NUMBERS | int | tuple[Any, ...]) -> str: ...

class _moxLocale_CurrencyInfo:
    """A fact about the writing of amounts; empty if the system does not tell"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxLocale_CurrencyInfo: ...
    def __call__(self, eInfo: mox.enums.LOCALE_INFO_CURRENCY | int, eLocaleDefault: mox.enums.LOCALE_DEFAULT_TYPE | int = mox.ldt_SystemDefault) -> str: ...
    def __getitem__(self, index: mox.enums.LOCALE_INFO_CURRENCY | int | tuple[Any, ...]) -> str: ...

class _moxLocale_DateTimeInfo:
    """A fact about the writing of dates and times; empty if the system does not tell"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxLocale_DateTimeInfo: ...
    def __call__(self, eInfo: mox.enums.LOCALE_INFO_DATETIME | int, eLocaleDefault: mox.enums.LOCALE_DEFAULT_TYPE | int = mox.ldt_SystemDefault) -> str: ...
    def __getitem__(self, index: mox.enums.LOCALE_INFO_DATETIME | int | tuple[Any, ...]) -> str: ...

class moxLocale(mox.Object):
    """Regional settings, from moxSystem.Locale"""
    LanguageInfo: _moxLocale_LanguageInfo
    NumbersInfo: _moxLocale_NumbersInfo
    CurrencyInfo: _moxLocale_CurrencyInfo
    DateTimeInfo: _moxLocale_DateTimeInfo

class moxRegistry(mox.Object):
    """Registry and settings, from moxSystem.Registry"""
    def EnumSettings(self, Publisher: str, AppName: str, Section: str, Keys: list[str] | mox.ByRef, Values: list[str] | mox.ByRef) -> int:
        """Subkeys of a settings key and the values of the same names; the count, arrays from 0"""
    def extDeleteKey(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str) -> bool:
        """Deletes a key without subkeys; True also if it did not exist, and its parents then stay behind"""
    def DeleteSetting(self, Publisher: str, AppName: str, Section: str, Key: str = "") -> bool:
        """Deletes a setting, or without a Key the whole section; False on failure"""
    def extDeleteKeyValue(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str) -> bool:
        """Deletes a value; False on failure or for an empty name"""
    def extEnumKeys(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sReturnKeyName: list[str] | mox.ByRef) -> int:
        """Names of the subkeys, array from 0; the count, 0 if the key cannot be opened"""
    def extGetKeyValue(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str, Default: str = "") -> str:
        """A value as text; numbers as 8, bytes as 2 hexadecimal digits each; Default if there is none"""
    def extGetKeyValueBytes(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str, KeyValue: bytes | mox.ByRef) -> int:
        """Bytes of a binary value, array from 0; their number, 0 if there are none"""
    def extSetKeyValueBytes(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str, KeyValue: bytes | mox.ByRef) -> bool:
        """Stores a binary value and creates the key where needed; False on failure"""
    def extSetKeyValueDWord(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str, sKeyValue: int) -> bool:
        """Stores a 32-bit number and creates the key where needed; False on failure"""
    def extSetKeyValueString(self, lRootKey: mox.enums.REG_ROOTKEY | int, sSubKey: str, sKeyName: str, sKeyValue: str) -> bool:
        """Stores a text and creates the key where needed; False on failure"""
    def GetSetting(self, Publisher: str, AppName: str, Section: str, Key: str, Default: str = "") -> str:
        """A setting below Software, publisher, application and section; Default if there is none"""
    def RegisterOCX(self, OCX: str, msTimeout: int = 5000) -> bool:
        """Registers a library in this process, waiting msTimeout milliseconds, 100 to 30000; False if it does not end"""
    def RegisterOleServer(self, OleServer: str) -> bool:
        """Starts a program with /regserver and does not wait; False if the file is missing"""
    def SaveSetting(self, Publisher: str, AppName: str, Section: str, Key: str, Setting: str) -> bool:
        """Stores a setting below Software, publisher, application and section; False on failure"""
    def UnRegisterOCX(self, OCX: str, msTimeout: int = 5000) -> bool:
        """Removes the registration of a library, waiting msTimeout milliseconds, 100 to 30000; False if it does not end"""
    def UnRegisterOleServer(self, OleServer: str) -> bool:
        """Starts a program with /unregserver and does not wait; False if the file is missing"""

class moxINet(mox.Object):
    """Internet session, from moxHub.INet"""
    @property
    def ConnectionName(self) -> str:
        """Name of the present connection; empty if the system does not tell"""
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def FTP(self) -> mox.moxFTP:
        """Connection to an FTP server"""
    @property
    def hConnection(self) -> int:
        """Session handle, 0 while the session is closed"""
    @property
    def HTTP(self) -> mox.moxHTTP:
        """Connection to an HTTP server, and reading of URLs"""
    def InternetConnect(self, hWndParentDialUpConnection: int = 0) -> bool:
        """Opens the session by the profile, dialling first where needed; False on failure"""
    def InternetDisConnect(self) -> None:
        """Closes the session and hangs up a line that the library dialled"""
    @property
    def Configured(self) -> bool:
        """True if a connection is set up on this machine"""
    @property
    def Connected(self) -> bool:
        """True if the machine is connected"""
    @property
    def ConnectionType(self) -> mox.enums.INET_CONNECTION_TYPE:
        """How the machine reaches the internet"""
    @property
    def IEVersion(self) -> mox.enums.INET_IE_VER:
        """Version of the system's internet layer"""
    @property
    def Offline(self) -> bool:
        """True if the system works offline"""
    @Offline.setter
    def Offline(self, value: bool) -> None: ...
    def OpenBrowser(self, Url: str, WindowStyle: int = 1) -> float:
        """Starts the browser; WindowStyle 0 hidden, 1 normal, 2 minimised, 3 maximised; process id, 0 without a browser"""
    @property
    def ProcessID(self) -> int:
        """Identifier of the process that the library is loaded in"""
    @property
    def Profile(self) -> mox.moxINetProfile:
        """Proxy and agent settings for the next InternetConnect"""
    @property
    def Proxy(self) -> bool:
        """True if the connection goes through a proxy"""
    @property
    def RAS(self) -> bool:
        """True if dial-up software is installed"""

class moxINetProfile(mox.Object):
    """Session settings, from moxINet.Profile"""
    @property
    def ProxyType(self) -> mox.enums.INET_CONNECTION_PROXYTYPE:
        """How the session finds its proxy"""
    @ProxyType.setter
    def ProxyType(self, value: mox.enums.INET_CONNECTION_PROXYTYPE | int) -> None: ...
    @property
    def ProxyAdress(self) -> str:
        """Address of the proxy, used with INPT_PROXY only"""
    @ProxyAdress.setter
    def ProxyAdress(self, value: str) -> None: ...
    @property
    def ProxyByPassList(self) -> str:
        """Hosts that are reached without the proxy"""
    @ProxyByPassList.setter
    def ProxyByPassList(self, value: str) -> None: ...
    @property
    def ProxyPort(self) -> int:
        """Port kept for the application, 21 at the start; the session does not use it"""
    @ProxyPort.setter
    def ProxyPort(self, value: int) -> None: ...
    @property
    def UserAgent(self) -> str:
        """Name under which the session introduces itself to servers"""
    @UserAgent.setter
    def UserAgent(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...

class moxHTTP(mox.Object):
    """HTTP client, from moxINet.HTTP"""
    @property
    def LastServerError(self) -> str:
        """Text of the last failed ServerConnect"""
    def ServerConnect(self) -> mox.enums.INET_CONNECTION_CONNECT_RESULT:
        """Prepares the connection to the profile's server; the network is first used by a request"""
    @property
    def hConnection(self) -> int:
        """Server handle, 0 while disconnected"""
    def ServerDisConnect(self) -> None:
        """Closes the connection"""
    @property
    def Profile(self) -> mox.moxHttpProfile:
        """Server, port and other settings for the next ServerConnect"""
    @property
    def ServerFile(self) -> str:
        """Path of the resource on the server"""
    @ServerFile.setter
    def ServerFile(self, value: str) -> None: ...
    def ServerGetFile(self, FileBytes: bytes | mox.ByRef) -> mox.enums.INET_CONNECTION_SERVER_FILERESULT:
        """Fetches ServerFile into the array from 0; what has come until a cancel stays in it"""
    def ServerGetFileInfo(self, struct_FI: mox.SERVER_FILEINFO | mox.ByRef) -> mox.enums.INET_CONNECTION_SERVER_FILERESULT:
        """Header data of ServerFile without its content; empty unless the result is INSGF_OK"""
    def ReadUrl(self, sUrl: str, UrlBytes: bytes | mox.ByRef, bOnlyUrlCheck: bool = False) -> mox.enums.INET_READ_URL_RESULT:
        """Reads any URL into the array from 0, with a session of its own if none is open; or only tests that it opens"""
    def xxxServerRead(self) -> bool:
        """Sends a fixed test request and drops the answer; always False"""
    @property
    def Url(self) -> str:
        """Reserved; always empty"""
    @Url.setter
    def Url(self, value: str) -> None: ...

class moxHttpProfile(mox.Object):
    """HTTP settings, from moxHTTP.Profile"""
    @property
    def Referrer(self) -> str:
        """Referring address that is sent with each request"""
    @Referrer.setter
    def Referrer(self, value: str) -> None: ...
    @property
    def Server(self) -> str:
        """Name of the server"""
    @Server.setter
    def Server(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Port(self) -> mox.enums.INET_CONNECTION_PORT:
        """Port of the server"""
    @Port.setter
    def Port(self, value: mox.enums.INET_CONNECTION_PORT | int) -> None: ...
    @property
    def PortUserDefined(self) -> int:
        """Port number for INPR_USERDEFINED_PORT"""
    @PortUserDefined.setter
    def PortUserDefined(self, value: int) -> None: ...
    @property
    def SSL(self) -> bool:
        """True for HTTPS"""
    @SSL.setter
    def SSL(self, value: bool) -> None: ...

class _moxFTP_FileFromID:
    """The living file object with this ID; 0 gives Nothing, the ID of a folder a type mismatch"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFTP_FileFromID: ...
    def __call__(self, FileID: int) -> mox.moxFtpFile: ...
    def __getitem__(self, index: int) -> mox.moxFtpFile: ...

class _moxFTP_FolderFromID:
    """The living folder object with this ID; 0 gives Nothing, the ID of a file a type mismatch"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFTP_FolderFromID: ...
    def __call__(self, FolderID: int) -> mox.moxFtpFolder: ...
    def __getitem__(self, index: int) -> mox.moxFtpFolder: ...

class moxFTP(mox.Object):
    """FTP client, from moxINet.FTP"""
    @property
    def hConnection(self) -> int:
        """Server handle, 0 while disconnected"""
    @property
    def LastServerError(self) -> str:
        """Reply of the server to the last failed login"""
    def ServerConnect(self) -> mox.enums.INET_CONNECTION_CONNECT_RESULT:
        """Logs in with the profile's data and reads the server's top folder"""
    def ServerDisConnect(self) -> None:
        """Closes the connection; the tree below RootFolder stays as it was read"""
    FileFromID: _moxFTP_FileFromID
    FolderFromID: _moxFTP_FolderFromID
    @property
    def Path(self) -> str:
        """The server's current directory; empty while disconnected"""
    @Path.setter
    def Path(self, value: str) -> None: ...
    @property
    def RootFolder(self) -> mox.moxFtpFolder:
        """The server's top folder; Nothing before the first login"""
    def SendCommand(self, sFtpCommand: str, TransferType: mox.enums.INET_CONNECTION_FTP_TRANSFER_TYPE | int) -> bool:
        """Sends a raw command; True if the server took it"""
    @property
    def Status(self) -> int:
        """State of the connection, a number of INET_CONNECTION_STATE"""
    @property
    def Profile(self) -> mox.moxFtpProfile:
        """Server, account and port for the next ServerConnect"""

class moxFtpProfile(mox.Object):
    """FTP settings, from moxFTP.Profile"""
    @property
    def PassiveMode(self) -> bool:
        """True if the client opens the data connections"""
    @PassiveMode.setter
    def PassiveMode(self, value: bool) -> None: ...
    @property
    def Password(self) -> str:
        """Password of the account"""
    @Password.setter
    def Password(self, value: str) -> None: ...
    @property
    def Server(self) -> str:
        """Name of the server"""
    @Server.setter
    def Server(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def UserID(self) -> str:
        """Name of the account"""
    @UserID.setter
    def UserID(self, value: str) -> None: ...
    @property
    def Port(self) -> mox.enums.INET_CONNECTION_PORT:
        """Port of the server"""
    @Port.setter
    def Port(self, value: mox.enums.INET_CONNECTION_PORT | int) -> None: ...
    @property
    def PortUserDefined(self) -> int:
        """Port number for INPR_USERDEFINED_PORT"""
    @PortUserDefined.setter
    def PortUserDefined(self, value: int) -> None: ...

class _moxFtpFolder_File:
    """File at Index, counted from 0; Nothing outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFtpFolder_File: ...
    def __call__(self, Index: int) -> mox.moxFtpFile: ...
    def __getitem__(self, index: int) -> mox.moxFtpFile: ...

class _moxFtpFolder_SubFolder:
    """Subfolder at Index, counted from 0; Nothing outside the list"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFtpFolder_SubFolder: ...
    def __call__(self, Index: int) -> mox.moxFtpFolder: ...
    def __getitem__(self, index: int) -> mox.moxFtpFolder: ...

class _moxFtpFolder_SubFolderByName:
    """First subfolder of this name, case counting only with FindExact; Nothing if there is none"""
    def __get__(self, object: Any, owner: Any = ...) -> _moxFtpFolder_SubFolderByName: ...
    def __call__(self, FolderName: str, FindExact: bool = True) -> mox.moxFtpFolder: ...
    def __getitem__(self, index: str | tuple[Any, ...]) -> mox.moxFtpFolder: ...

class moxFtpFolder(mox.Object):
    """Remote folder, from moxFTP.RootFolder and the folders below it"""
    @property
    def Connection(self) -> mox.moxFTP:
        """The connection that the folder belongs to"""
    def CreateSubFolder(self, Folder: str) -> bool:
        """Creates a folder inside this one; False on failure"""
    def Delete(self, Force: bool = False) -> bool:
        """Deletes the folder if the server lets it go; Force has no effect; the root cannot be deleted"""
    File: _moxFtpFolder_File
    def FileDownload(self, RemoteFile: str, LocalFile: str, TransferType: mox.enums.INET_CONNECTION_FTP_TRANSFER_TYPE | int) -> bool:
        """Fetches a remote file into a local one, which is overwritten; False on failure"""
    @property
    def Files(self) -> int:
        """Number of files; reads the folder if needed"""
    @property
    def ID(self) -> int:
        """Number that names the object as long as it lives, for FolderFromID"""
    @property
    def ParentFolder(self) -> mox.moxFtpFolder:
        """The folder above; Nothing for the root"""
    @property
    def IsRootFolder(self) -> bool:
        """True for the server's top folder"""
    @property
    def Name(self) -> str:
        """Name of the folder; empty for the root"""
    @Name.setter
    def Name(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    @property
    def Path(self) -> str:
        """Path from the root, with a slash at both ends"""
    SubFolder: _moxFtpFolder_SubFolder
    SubFolderByName: _moxFtpFolder_SubFolderByName
    def ZZZ_todo_FileExists(self, File: str) -> bool:
        """Not implemented; always False"""
    def FileUpload(self, LocalFile: str, RemoteFile: str, TransferType: mox.enums.INET_CONNECTION_FTP_TRANSFER_TYPE | int) -> bool:
        """Sends a local file to the server and verifies it; False if the remote name is taken or on failure"""
    def ZZZ_todo_FolderDelete(self, Folder: str) -> bool:
        """Not implemented; always False"""
    def ZZZ_todo_FolderExists(self, Folder: str) -> bool:
        """Not implemented; always False"""
    @property
    def SubFolders(self) -> int:
        """Number of subfolders; reads the folder if needed"""
    @property
    def ZZZ_todo_Path(self) -> str:
        """Not implemented; always empty"""
    @ZZZ_todo_Path.setter
    def ZZZ_todo_Path(self, value: str) -> None: ...
    def Refresh(self) -> None:
        """Reads the folder from the server again; all its file and folder objects are replaced"""
    def ZZZ_todo_FolderCreate(self, Folder: str) -> bool:
        """Not implemented; always False"""

class moxFtpFile(mox.Object):
    """Remote file, from moxFtpFolder.File"""
    def Delete(self, Force: bool = False) -> bool:
        """Deletes the file; False on failure; Force has no effect"""
    @property
    def Connection(self) -> mox.moxFTP:
        """The connection that the file belongs to"""
    @property
    def Path(self) -> str:
        """Path of its folder from the root, with a slash at both ends"""
    @property
    def Name(self) -> str:
        """Name of the file"""
    @Name.setter
    def Name(self, value: str) -> None: ...
    def __call__(self, *arguments: Any) -> Any: ...
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: Any, value: Any) -> None: ...
    def Rename(self, FileName: str, OverWriteExisting: bool = False) -> bool:
        """Renames the file on the server; False if the name is taken, whatever OverWriteExisting says"""
    @property
    def ID(self) -> int:
        """Number that names the object as long as it lives, for FileFromID"""
    @property
    def Folder(self) -> mox.moxFtpFolder:
        """The folder that the file was listed in"""

class Record:
    """A record of the type library, by its name and with its fields."""
    @overload
    def __new__(cls, name: Literal["POINTAPI"], /, *, X: int = ..., Y: int = ...) -> mox.POINTAPI: ...
    @overload
    def __new__(cls, name: Literal["Size"], /, *, CX: int = ..., CY: int = ...) -> mox.Size: ...
    @overload
    def __new__(cls, name: Literal["RECT"], /, *, Left: int = ..., Top: int = ..., Right: int = ..., Bottom: int = ...) -> mox.RECT: ...
    @overload
    def __new__(cls, name: Literal["moX_HSL"], /, *, Hue: int = ..., Saturation: int = ..., Luminance: int = ...) -> mox.moX_HSL: ...
    @overload
    def __new__(cls, name: Literal["moX_CMY"], /, *, Cyan: int = ..., Magenta: int = ..., Yellow: int = ...) -> mox.moX_CMY: ...
    @overload
    def __new__(cls, name: Literal["moX_CMYK"], /, *, Cyan: int = ..., Magenta: int = ..., Yellow: int = ..., BlacK: int = ...) -> mox.moX_CMYK: ...
    @overload
    def __new__(cls, name: Literal["MOX_FILEDATETIME"], /, *, Created: float | datetime = ..., LastAccess: float | datetime = ..., Modified: float | datetime = ...) -> mox.MOX_FILEDATETIME: ...
    @overload
    def __new__(cls, name: Literal["MOX_FILEVERSIONINFO"], /, *, Available: bool = ..., Major: int = ..., Minor: int = ..., Revision: int = ...) -> mox.MOX_FILEVERSIONINFO: ...
    @overload
    def __new__(cls, name: Literal["MOX_FS_SPACEINFO"], /, *, TotalBytes: float = ..., UsedBytes: float = ..., FreeBytes: float = ..., AvailableBytes: float = ...) -> mox.MOX_FS_SPACEINFO: ...
    @overload
    def __new__(cls, name: Literal["MOX_FS_FINDFF"], /, *, Count: int = ..., IsDirectory: list[bool] = ..., PathFileName: list[str] = ..., Extension: list[str] = ..., Depth: bytes = ...) -> mox.MOX_FS_FINDFF: ...
    @overload
    def __new__(cls, name: Literal["SYS_OS_VERSION_SP"], /, *, spMajor: int = ..., spMinor: int = ..., spString: str = ...) -> mox.SYS_OS_VERSION_SP: ...
    @overload
    def __new__(cls, name: Literal["moxOSInfo"], /, *, Bootmode: mox.enums.SYS_OS_BOOTMODE | int = ..., Version: mox.enums.SYS_OS_VERSION | int = ..., VersionEx: mox.enums.SYS_OS_VERSION_EX | int = ..., VersionSP: mox.SYS_OS_VERSION_SP = ..., VersionString: str = ..., ProductId: str = ..., ProductKey: str = ..., ProductName: str = ..., Registered: bool = ..., RegisteredOrganization: str = ..., RegisteredOwner: str = ..., ClientHardwareID_MS: str = ...) -> mox.moxOSInfo: ...
    @overload
    def __new__(cls, name: Literal["moxBiosInfo"], /, *, Date: float | datetime = ..., Version: str = ...) -> mox.moxBiosInfo: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoCpu"], /, *, Architecture: int = ..., Count: int = ..., Type: int = ..., Model: int = ..., Stepping: int = ..., Name: str = ..., Vendor: str = ..., Identifier: str = ..., Mhz: int = ..., Platform_ID: int = ...) -> mox.moxHardwareInfoCpu: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoMem"], /, *, SizeMB: int = ...) -> mox.moxHardwareInfoMem: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoNetAdapter"], /, *, AdapterName: str = ..., AdapterDescription: str = ..., AdapterMACAddress: str = ...) -> mox.moxHardwareInfoNetAdapter: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoSysDrive"], /, *, DriveLetter: str = ..., DriveSizeMB: int = ..., FileSystemName: str = ..., VolumeName: str = ..., Serial: int = ...) -> mox.moxHardwareInfoSysDrive: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoVideo"], /, *, DeviceDesription: str = ..., BiosString: str = ...) -> mox.moxHardwareInfoVideo: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfoMonitor"], /, *, Desription: str = ..., Provider: str = ...) -> mox.moxHardwareInfoMonitor: ...
    @overload
    def __new__(cls, name: Literal["moxHardwareInfo"], /, *, Bios: mox.moxBiosInfo = ..., CPU: mox.moxHardwareInfoCpu = ..., Memory: mox.moxHardwareInfoMem = ..., Net: mox.moxHardwareInfoNetAdapter = ..., SystemDrive: mox.moxHardwareInfoSysDrive = ..., Video: mox.moxHardwareInfoVideo = ..., Monitor: mox.moxHardwareInfoMonitor = ...) -> mox.moxHardwareInfo: ...
    @overload
    def __new__(cls, name: Literal["moxOfficeInfo"], /, *, Count: int = ..., ProductId: list[str] = ..., ProductKey: list[str] = ..., ProductName: list[str] = ..., VersionString: list[str] = ...) -> mox.moxOfficeInfo: ...
    @overload
    def __new__(cls, name: Literal["moxUserInfo"], /, *, Name: str = ..., IsAdmin: bool = ..., EmailAdresses: int = ..., EmailAdress: list[str] = ...) -> mox.moxUserInfo: ...
    @overload
    def __new__(cls, name: Literal["SERVER_FILEINFO"], /, *, sfi_Length: int = ..., sfi_ContentType: str = ..., sfi_ETag: str = ..., sfi_LastModified: str = ...) -> mox.SERVER_FILEINFO: ...
    @overload
    def __new__(cls, name: str, /, **fields: Any) -> mox.Record: ...

class POINTAPI(Record):
    """A pair of whole numbers for the two directions, as a rule a point in pixels"""
    def __new__(cls, *, X: int = ..., Y: int = ...) -> mox.POINTAPI: ...
    X: int
    """Horizontal value; positions grow to the right"""
    Y: int
    """Vertical value; positions grow downwards"""

class Size(Record):
    """A width and a height, as a rule in pixels"""
    def __new__(cls, *, CX: int = ..., CY: int = ...) -> mox.Size: ...
    CX: int
    """Extent in the horizontal direction"""
    CY: int
    """Extent in the vertical direction"""

class RECT(Record):
    """A rectangle by its four edges, as a rule in pixels"""
    def __new__(cls, *, Left: int = ..., Top: int = ..., Right: int = ..., Bottom: int = ...) -> mox.RECT: ...
    Left: int
    """Position of the left edge"""
    Top: int
    """Position of the upper edge"""
    Right: int
    """Position of the right edge"""
    Bottom: int
    """Position of the lower edge"""

class moX_HSL(Record):
    """A colour by hue, saturation and share of the largest channel"""
    def __new__(cls, *, Hue: int = ..., Saturation: int = ..., Luminance: int = ...) -> mox.moX_HSL: ...
    Hue: int
    """Angle on the colour circle in degrees, 0 to 359; 0 is red, 120 green, 240 blue"""
    Saturation: int
    """Distance from grey in per cent, 0 to 100"""
    Luminance: int
    """Share of the largest channel in per cent, 0 to 100"""

class moX_CMY(Record):
    """A colour by the three inks of subtractive mixing"""
    def __new__(cls, *, Cyan: int = ..., Magenta: int = ..., Yellow: int = ...) -> mox.moX_CMY: ...
    Cyan: int
    """Cyan, 0 to 255"""
    Magenta: int
    """Magenta, 0 to 255"""
    Yellow: int
    """Yellow, 0 to 255"""

class moX_CMYK(Record):
    """A colour by three inks and black"""
    def __new__(cls, *, Cyan: int = ..., Magenta: int = ..., Yellow: int = ..., BlacK: int = ...) -> mox.moX_CMYK: ...
    Cyan: int
    """Cyan, 0 to 255"""
    Magenta: int
    """Magenta, 0 to 255"""
    Yellow: int
    """Yellow, 0 to 255"""
    BlacK: int
    """Black, 0 to 255"""

class MOX_FILEDATETIME(Record):
    """The three times of a file or folder, in local time"""
    def __new__(cls, *, Created: float | datetime = ..., LastAccess: float | datetime = ..., Modified: float | datetime = ...) -> mox.MOX_FILEDATETIME: ...
    Created: mox.Date
    """When it was created"""
    LastAccess: mox.Date
    """When it was last opened"""
    Modified: mox.Date
    """When its content was last changed"""

class MOX_FILEVERSIONINFO(Record):
    """Version in a program file"""
    def __new__(cls, *, Available: bool = ..., Major: int = ..., Minor: int = ..., Revision: int = ...) -> mox.MOX_FILEVERSIONINFO: ...
    Available: bool
    """True if the file holds a version"""
    Major: int
    """First number of the version"""
    Minor: int
    """Second number of the version"""
    Revision: int
    """Fourth number plus 100 times the third, so 5.1.26.3 has 2603"""

class MOX_FS_SPACEINFO(Record):
    """Space on a volume in bytes; all 0 on failure"""
    def __new__(cls, *, TotalBytes: float = ..., UsedBytes: float = ..., FreeBytes: float = ..., AvailableBytes: float = ...) -> mox.MOX_FS_SPACEINFO: ...
    TotalBytes: float
    """Size of the volume"""
    UsedBytes: float
    """Bytes in use"""
    FreeBytes: float
    """Free bytes on the volume"""
    AvailableBytes: float
    """Free bytes that the user may fill"""

class MOX_FS_FINDFF(Record):
    """A listing of folders and files; entry i of each array belongs together, from 0 to Count - 1"""
    def __new__(cls, *, Count: int = ..., IsDirectory: list[bool] = ..., PathFileName: list[str] = ..., Extension: list[str] = ..., Depth: bytes = ...) -> mox.MOX_FS_FINDFF: ...
    Count: int
    """Number of entries; with 0 each array has one empty element"""
    IsDirectory: list[bool]
    """True for a folder"""
    PathFileName: list[str]
    """Full path with backslash of a folder, bare name of a file in the folder listed before it"""
    Extension: list[str]
    """Text behind the last dot, empty if there is none"""
    Depth: bytes
    """Levels below the listed folder, 0 for the folder itself and its files"""

class SYS_OS_VERSION_SP(Record):
    """Service pack of the system"""
    def __new__(cls, *, spMajor: int = ..., spMinor: int = ..., spString: str = ...) -> mox.SYS_OS_VERSION_SP: ...
    spMajor: int
    """Number of the service pack, 0 if there is none"""
    spMinor: int
    """Minor number of the service pack"""
    spString: str
    """Name of the service pack, empty if there is none"""

class moxOSInfo(Record):
    """Facts about the operating system, gathered once for each moxSystem"""
    def __new__(cls, *, Bootmode: mox.enums.SYS_OS_BOOTMODE | int = ..., Version: mox.enums.SYS_OS_VERSION | int = ..., VersionEx: mox.enums.SYS_OS_VERSION_EX | int = ..., VersionSP: mox.SYS_OS_VERSION_SP = ..., VersionString: str = ..., ProductId: str = ..., ProductKey: str = ..., ProductName: str = ..., Registered: bool = ..., RegisteredOrganization: str = ..., RegisteredOwner: str = ..., ClientHardwareID_MS: str = ...) -> mox.moxOSInfo: ...
    Bootmode: mox.enums.SYS_OS_BOOTMODE
    """How the system was started"""
    Version: mox.enums.SYS_OS_VERSION
    """Which Windows it is"""
    VersionEx: mox.enums.SYS_OS_VERSION_EX
    """Edition of that Windows"""
    VersionSP: mox.SYS_OS_VERSION_SP
    """Its service pack"""
    VersionString: str
    """Version, edition and service pack as one text"""
    ProductId: str
    """Product number, 00000-000-0000000-00000 if there is none"""
    ProductKey: str
    """Product key, empty if there is none"""
    ProductName: str
    """Name of the product"""
    Registered: bool
    """False only if the registry says so"""
    RegisteredOrganization: str
    """Organisation that the system is registered to"""
    RegisteredOwner: str
    """Person that the system is registered to"""
    ClientHardwareID_MS: str
    """Hardware identifier of licensing, as a rule hexadecimal digits"""

class moxBiosInfo(Record):
    """The machine's firmware"""
    def __new__(cls, *, Date: float | datetime = ..., Version: str = ...) -> mox.moxBiosInfo: ...
    Date: mox.Date
    """Date of the firmware"""
    Version: str
    """Version text of the firmware, one part to a line"""

class moxHardwareInfoCpu(Record):
    """The processor; texts that the machine does not give begin with ~cpu~"""
    def __new__(cls, *, Architecture: int = ..., Count: int = ..., Type: int = ..., Model: int = ..., Stepping: int = ..., Name: str = ..., Vendor: str = ..., Identifier: str = ..., Mhz: int = ..., Platform_ID: int = ...) -> mox.moxHardwareInfoCpu: ...
    Architecture: int
    """Processor architecture as the system numbers it, 0 for x86"""
    Count: int
    """Number of logical processors"""
    Type: int
    """Processor type as the system numbers it"""
    Model: int
    """Model, the high byte of the processor revision"""
    Stepping: int
    """Stepping, the low byte of the processor revision"""
    Name: str
    """Name of the processor"""
    Vendor: str
    """Maker of the processor"""
    Identifier: str
    """Family, model and stepping as text"""
    Mhz: int
    """Clock in megahertz, a multiple of 5; 335 if the machine does not tell"""
    Platform_ID: int
    """Platform number of the processor"""

class moxHardwareInfoMem(Record):
    """The machine's memory"""
    def __new__(cls, *, SizeMB: int = ...) -> mox.moxHardwareInfoMem: ...
    SizeMB: int
    """Physical memory in megabytes of 1048576 bytes"""

class moxHardwareInfoNetAdapter(Record):
    """The first Ethernet adapter; empty texts if there is none"""
    def __new__(cls, *, AdapterName: str = ..., AdapterDescription: str = ..., AdapterMACAddress: str = ...) -> mox.moxHardwareInfoNetAdapter: ...
    AdapterName: str
    """Name of the connection, else the adapter's identifier"""
    AdapterDescription: str
    """Description of the adapter"""
    AdapterMACAddress: str
    """Hardware address as hexadecimal digits with hyphens between the bytes"""

class moxHardwareInfoSysDrive(Record):
    """The drive that holds the system"""
    def __new__(cls, *, DriveLetter: str = ..., DriveSizeMB: int = ..., FileSystemName: str = ..., VolumeName: str = ..., Serial: int = ...) -> mox.moxHardwareInfoSysDrive: ...
    DriveLetter: str
    """Letter of the drive, upper case, without a colon"""
    DriveSizeMB: int
    """Size of the volume in megabytes of 1048576 bytes"""
    FileSystemName: str
    """Name of the file system, such as NTFS"""
    VolumeName: str
    """Label of the volume"""
    Serial: int
    """Serial number of the volume"""

class moxHardwareInfoVideo(Record):
    """The first video adapter"""
    def __new__(cls, *, DeviceDesription: str = ..., BiosString: str = ...) -> mox.moxHardwareInfoVideo: ...
    DeviceDesription: str
    """Description of the adapter, empty if there is none"""
    BiosString: str
    """Name of the adapter's firmware"""

class moxHardwareInfoMonitor(Record):
    """The monitor"""
    def __new__(cls, *, Desription: str = ..., Provider: str = ...) -> mox.moxHardwareInfoMonitor: ...
    Desription: str
    """Description of the monitor"""
    Provider: str
    """Maker of the monitor's driver"""

class moxHardwareInfo(Record):
    """Facts about the machine, gathered once for each moxSystem"""
    def __new__(cls, *, Bios: mox.moxBiosInfo = ..., CPU: mox.moxHardwareInfoCpu = ..., Memory: mox.moxHardwareInfoMem = ..., Net: mox.moxHardwareInfoNetAdapter = ..., SystemDrive: mox.moxHardwareInfoSysDrive = ..., Video: mox.moxHardwareInfoVideo = ..., Monitor: mox.moxHardwareInfoMonitor = ...) -> mox.moxHardwareInfo: ...
    Bios: mox.moxBiosInfo
    """Firmware"""
    CPU: mox.moxHardwareInfoCpu
    """Processor"""
    Memory: mox.moxHardwareInfoMem
    """Memory"""
    Net: mox.moxHardwareInfoNetAdapter
    """First Ethernet adapter"""
    SystemDrive: mox.moxHardwareInfoSysDrive
    """Drive that holds the system"""
    Video: mox.moxHardwareInfoVideo
    """First video adapter"""
    Monitor: mox.moxHardwareInfoMonitor
    """Monitor"""

class moxOfficeInfo(Record):
    """Installed Office versions; entry i of each array belongs together, from 0 to Count - 1"""
    def __new__(cls, *, Count: int = ..., ProductId: list[str] = ..., ProductKey: list[str] = ..., ProductName: list[str] = ..., VersionString: list[str] = ...) -> mox.moxOfficeInfo: ...
    Count: int
    """Number of entries; with 0 each array has one empty element"""
    ProductId: list[str]
    """Product number"""
    ProductKey: list[str]
    """Product key"""
    ProductName: list[str]
    """Name of the product"""
    VersionString: list[str]
    """Full version of the product"""

class moxUserInfo(Record):
    """Facts about the current user, gathered anew at each read"""
    def __new__(cls, *, Name: str = ..., IsAdmin: bool = ..., EmailAdresses: int = ..., EmailAdress: list[str] = ...) -> mox.moxUserInfo: ...
    Name: str
    """Login name"""
    IsAdmin: bool
    """True if the user may administer the machine"""
    EmailAdresses: int
    """Number of addresses; with 0 the array has one empty element"""
    EmailAdress: list[str]
    """Mail addresses of the user's accounts, from 0 to EmailAdresses - 1"""

class SERVER_FILEINFO(Record):
    """Header data of a resource on a server"""
    def __new__(cls, *, sfi_Length: int = ..., sfi_ContentType: str = ..., sfi_ETag: str = ..., sfi_LastModified: str = ...) -> mox.SERVER_FILEINFO: ...
    sfi_Length: int
    """Length in bytes, 0 if the server does not tell"""
    sfi_ContentType: str
    """Media type"""
    sfi_ETag: str
    """Tag of the present content"""
    sfi_LastModified: str
    """Time of the last change, as the server writes it"""

@overload
def create(name: Literal["moxHub", "TRL_OBKR_MOX.moxHub"]) -> moxHub: ...
@overload
def create(name: Literal["moxHubGlobal", "TRL_OBKR_MOX.moxHubGlobal"]) -> moxHubGlobal: ...
@overload
def create(name: Literal["moxOffscreenBuffer", "TRL_OBKR_MOX.moxOffscreenBuffer"]) -> moxOffscreenBuffer: ...
@overload
def create(name: Literal["moxTimer", "TRL_OBKR_MOX.moxTimer"]) -> moxTimer: ...
@overload
def create(name: Literal["moxMouseEvents", "TRL_OBKR_MOX.moxMouseEvents"]) -> moxMouseEvents: ...
@overload
def create(name: Literal["moxFSWatcher", "TRL_OBKR_MOX.moxFSWatcher"]) -> moxFSWatcher: ...
@overload
def create(name: str) -> Any: ...

vbBlackness: mox.enums.DrawModeConstants
vbNotMergePen: mox.enums.DrawModeConstants
vbMaskNotPen: mox.enums.DrawModeConstants
vbNotCopyPen: mox.enums.DrawModeConstants
vbMaskPenNot: mox.enums.DrawModeConstants
vbInvert: mox.enums.DrawModeConstants
vbXorPen: mox.enums.DrawModeConstants
vbNotMaskPen: mox.enums.DrawModeConstants
vbMaskPen: mox.enums.DrawModeConstants
vbNotXorPen: mox.enums.DrawModeConstants
vbNop: mox.enums.DrawModeConstants
vbMergeNotPen: mox.enums.DrawModeConstants
vbCopyPen: mox.enums.DrawModeConstants
vbMergePenNot: mox.enums.DrawModeConstants
vbMergePen: mox.enums.DrawModeConstants
vbWhiteness: mox.enums.DrawModeConstants
vbSolid: mox.enums.DrawStyleConstants
vbDash: mox.enums.DrawStyleConstants
vbDot: mox.enums.DrawStyleConstants
vbDashDot: mox.enums.DrawStyleConstants
vbDashDotDot: mox.enums.DrawStyleConstants
vbInvisible: mox.enums.DrawStyleConstants
vbInsideSolid: mox.enums.DrawStyleConstants
vbKeyLButton: mox.enums.KeyCodeConstants
vbKeyRButton: mox.enums.KeyCodeConstants
vbKeyCancel: mox.enums.KeyCodeConstants
vbKeyMButton: mox.enums.KeyCodeConstants
vbKeyBack: mox.enums.KeyCodeConstants
vbKeyTab: mox.enums.KeyCodeConstants
vbKeyClear: mox.enums.KeyCodeConstants
vbKeyReturn: mox.enums.KeyCodeConstants
vbKeyShift: mox.enums.KeyCodeConstants
vbKeyControl: mox.enums.KeyCodeConstants
vbKeyMenu: mox.enums.KeyCodeConstants
vbKeyPause: mox.enums.KeyCodeConstants
vbKeyCapital: mox.enums.KeyCodeConstants
vbKeyEscape: mox.enums.KeyCodeConstants
vbKeySpace: mox.enums.KeyCodeConstants
vbKeyPageUp: mox.enums.KeyCodeConstants
vbKeyPageDown: mox.enums.KeyCodeConstants
vbKeyEnd: mox.enums.KeyCodeConstants
vbKeyHome: mox.enums.KeyCodeConstants
vbKeyLeft: mox.enums.KeyCodeConstants
vbKeyUp: mox.enums.KeyCodeConstants
vbKeyRight: mox.enums.KeyCodeConstants
vbKeyDown: mox.enums.KeyCodeConstants
vbKeySelect: mox.enums.KeyCodeConstants
vbKeyPrint: mox.enums.KeyCodeConstants
vbKeyExecute: mox.enums.KeyCodeConstants
vbKeySnapshot: mox.enums.KeyCodeConstants
vbKeyInsert: mox.enums.KeyCodeConstants
vbKeyDelete: mox.enums.KeyCodeConstants
vbKeyHelp: mox.enums.KeyCodeConstants
vbKey0: mox.enums.KeyCodeConstants
vbKey1: mox.enums.KeyCodeConstants
vbKey2: mox.enums.KeyCodeConstants
vbKey3: mox.enums.KeyCodeConstants
vbKey4: mox.enums.KeyCodeConstants
vbKey5: mox.enums.KeyCodeConstants
vbKey6: mox.enums.KeyCodeConstants
vbKey7: mox.enums.KeyCodeConstants
vbKey8: mox.enums.KeyCodeConstants
vbKey9: mox.enums.KeyCodeConstants
vbKeyA: mox.enums.KeyCodeConstants
vbKeyB: mox.enums.KeyCodeConstants
vbKeyC: mox.enums.KeyCodeConstants
vbKeyD: mox.enums.KeyCodeConstants
vbKeyE: mox.enums.KeyCodeConstants
vbKeyF: mox.enums.KeyCodeConstants
vbKeyG: mox.enums.KeyCodeConstants
vbKeyH: mox.enums.KeyCodeConstants
vbKeyI: mox.enums.KeyCodeConstants
vbKeyJ: mox.enums.KeyCodeConstants
vbKeyK: mox.enums.KeyCodeConstants
vbKeyL: mox.enums.KeyCodeConstants
vbKeyM: mox.enums.KeyCodeConstants
vbKeyN: mox.enums.KeyCodeConstants
vbKeyO: mox.enums.KeyCodeConstants
vbKeyP: mox.enums.KeyCodeConstants
vbKeyQ: mox.enums.KeyCodeConstants
vbKeyR: mox.enums.KeyCodeConstants
vbKeyS: mox.enums.KeyCodeConstants
vbKeyT: mox.enums.KeyCodeConstants
vbKeyU: mox.enums.KeyCodeConstants
vbKeyV: mox.enums.KeyCodeConstants
vbKeyW: mox.enums.KeyCodeConstants
vbKeyX: mox.enums.KeyCodeConstants
vbKeyY: mox.enums.KeyCodeConstants
vbKeyZ: mox.enums.KeyCodeConstants
vbKeyNumpad0: mox.enums.KeyCodeConstants
vbKeyNumpad1: mox.enums.KeyCodeConstants
vbKeyNumpad2: mox.enums.KeyCodeConstants
vbKeyNumpad3: mox.enums.KeyCodeConstants
vbKeyNumpad4: mox.enums.KeyCodeConstants
vbKeyNumpad5: mox.enums.KeyCodeConstants
vbKeyNumpad6: mox.enums.KeyCodeConstants
vbKeyNumpad7: mox.enums.KeyCodeConstants
vbKeyNumpad8: mox.enums.KeyCodeConstants
vbKeyNumpad9: mox.enums.KeyCodeConstants
vbKeyMultiply: mox.enums.KeyCodeConstants
vbKeyAdd: mox.enums.KeyCodeConstants
vbKeySeparator: mox.enums.KeyCodeConstants
vbKeySubtract: mox.enums.KeyCodeConstants
vbKeyDecimal: mox.enums.KeyCodeConstants
vbKeyDivide: mox.enums.KeyCodeConstants
vbKeyF1: mox.enums.KeyCodeConstants
vbKeyF2: mox.enums.KeyCodeConstants
vbKeyF3: mox.enums.KeyCodeConstants
vbKeyF4: mox.enums.KeyCodeConstants
vbKeyF5: mox.enums.KeyCodeConstants
vbKeyF6: mox.enums.KeyCodeConstants
vbKeyF7: mox.enums.KeyCodeConstants
vbKeyF8: mox.enums.KeyCodeConstants
vbKeyF9: mox.enums.KeyCodeConstants
vbKeyF10: mox.enums.KeyCodeConstants
vbKeyF11: mox.enums.KeyCodeConstants
vbKeyF12: mox.enums.KeyCodeConstants
vbKeyF13: mox.enums.KeyCodeConstants
vbKeyF14: mox.enums.KeyCodeConstants
vbKeyF15: mox.enums.KeyCodeConstants
vbKeyF16: mox.enums.KeyCodeConstants
vbKeyNumlock: mox.enums.KeyCodeConstants
vbKeyScrollLock: mox.enums.KeyCodeConstants
moxext_ProcessID: mox.enums.MOX_EXTENSION_INFO
moxext_ThreadID: mox.enums.MOX_EXTENSION_INFO
moxext_UsedByApp: mox.enums.MOX_EXTENSION_INFO
moxext_VersionMajor: mox.enums.MOX_EXTENSION_INFO
moxext_VersionMinor: mox.enums.MOX_EXTENSION_INFO
moxext_VersionRevision: mox.enums.MOX_EXTENSION_INFO
moxext_VersionString: mox.enums.MOX_EXTENSION_INFO
suTWIP: mox.enums.MOX_SCALEUNIT
suPOINTS: mox.enums.MOX_SCALEUNIT
suPIXEL: mox.enums.MOX_SCALEUNIT
suINCH: mox.enums.MOX_SCALEUNIT
suMM: mox.enums.MOX_SCALEUNIT
suCM: mox.enums.MOX_SCALEUNIT
PRNOT_PORTRAIT: mox.enums.PRN_ORIENTATION
PRNOT_LANDSCAPE: mox.enums.PRN_ORIENTATION
PRNLO_LandscapeNotSupported: mox.enums.PRN_LANDSCAPEORIENT
PRNLO_LandscapeOrient90: mox.enums.PRN_LANDSCAPEORIENT
PRNLO_LandscapeOrient270: mox.enums.PRN_LANDSCAPEORIENT
PRNDP_SIMPLE: mox.enums.PRN_DUPLEX
PRNDP_HORIZONTAL: mox.enums.PRN_DUPLEX
PRNDP_VERTICAL: mox.enums.PRN_DUPLEX
PRNCM_MONOCHROME: mox.enums.PRN_COLORMODE
PRNCM_COLOUR: mox.enums.PRN_COLORMODE
PRNCM_NONE: mox.enums.PRN_CLIPPINGSUPPORT
PRNCM_SIMPLE: mox.enums.PRN_CLIPPINGSUPPORT
PRNCM_EXTENDED: mox.enums.PRN_CLIPPINGSUPPORT
PRNUN_TWIP: mox.enums.PRN_UNIT
PRNUN_POINT: mox.enums.PRN_UNIT
PRNUN_PIXEL: mox.enums.PRN_UNIT
PRNUN_INCH: mox.enums.PRN_UNIT
PRNUN_MM: mox.enums.PRN_UNIT
PRNUN_CM: mox.enums.PRN_UNIT
PRNBS_TRANSPARENT: mox.enums.PRN_BACKSTYLE
PRNBS_OPAQUE: mox.enums.PRN_BACKSTYLE
PRNJS_NONE: mox.enums.PRN_JOBSTATUS
PRNJS_SPOOLING: mox.enums.PRN_JOBSTATUS
PRNJS_PRINTING: mox.enums.PRN_JOBSTATUS
PRNJS_PRINTED: mox.enums.PRN_JOBSTATUS
PRNJS_PAUSED: mox.enums.PRN_JOBSTATUS
PRNJS_RESTART: mox.enums.PRN_JOBSTATUS
PRNJS_DELETING: mox.enums.PRN_JOBSTATUS
PRNJS_DELETED: mox.enums.PRN_JOBSTATUS
PRNJS_ERROR: mox.enums.PRN_JOBSTATUS
PRNJS_BLOCKED: mox.enums.PRN_JOBSTATUS
PRNJS_OFFLINE: mox.enums.PRN_JOBSTATUS
PRNJS_PAPEROUT: mox.enums.PRN_JOBSTATUS
PRNJS_USER_INTERVENTION: mox.enums.PRN_JOBSTATUS
dsc_Scrollbar: mox.enums.moX_DRAW_SYSCOLOR
dsc_Background: mox.enums.moX_DRAW_SYSCOLOR
dsc_ActiveCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_InActiveCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_Menu: mox.enums.moX_DRAW_SYSCOLOR
dsc_Window: mox.enums.moX_DRAW_SYSCOLOR
dsc_WindowFrame: mox.enums.moX_DRAW_SYSCOLOR
dsc_MenuText: mox.enums.moX_DRAW_SYSCOLOR
dsc_WindowText: mox.enums.moX_DRAW_SYSCOLOR
dsc_CaptionText: mox.enums.moX_DRAW_SYSCOLOR
dsc_ActiveBorder: mox.enums.moX_DRAW_SYSCOLOR
dsc_InActiveBorder: mox.enums.moX_DRAW_SYSCOLOR
dsc_AppWorkspace: mox.enums.moX_DRAW_SYSCOLOR
dsc_Highlight: mox.enums.moX_DRAW_SYSCOLOR
dsc_HighlightText: mox.enums.moX_DRAW_SYSCOLOR
dsc_BtnFace: mox.enums.moX_DRAW_SYSCOLOR
dsc_BtnShadow: mox.enums.moX_DRAW_SYSCOLOR
dsc_GrayText: mox.enums.moX_DRAW_SYSCOLOR
dsc_BtnText: mox.enums.moX_DRAW_SYSCOLOR
dsc_InActiveCaptionText: mox.enums.moX_DRAW_SYSCOLOR
dsc_BtnHighlight: mox.enums.moX_DRAW_SYSCOLOR
dsc_DkShadow3D: mox.enums.moX_DRAW_SYSCOLOR
dsc_Light3D: mox.enums.moX_DRAW_SYSCOLOR
dsc_InfoText: mox.enums.moX_DRAW_SYSCOLOR
dsc_InfoBk: mox.enums.moX_DRAW_SYSCOLOR
dsc_BtnAlternateFace: mox.enums.moX_DRAW_SYSCOLOR
dsc_HotTracking: mox.enums.moX_DRAW_SYSCOLOR
dsc_GradientActiveCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_GradientInActiveCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_MenuHilight: mox.enums.moX_DRAW_SYSCOLOR
dsc_Menubar: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroup: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroupBrdL: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroupBrdT: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroupBrdR: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroupBrdB: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarNormGroupCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroup: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroupBrdL: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroupBrdT: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroupBrdR: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroupBrdB: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarSpecGroupCaption: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_Center: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_LeftTop: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_Top: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_RightTop: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_Right: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_RightBottom: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_Bottom: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_LeftBottom: mox.enums.moX_DRAW_SYSCOLOR
dsc_ExplBarBG_Left: mox.enums.moX_DRAW_SYSCOLOR
dsi_Error: mox.enums.moX_DRAW_SYSICON
dsi_Question: mox.enums.moX_DRAW_SYSICON
dsi_Warning: mox.enums.moX_DRAW_SYSICON
dsi_Information: mox.enums.moX_DRAW_SYSICON
dsi_WinLogo: mox.enums.moX_DRAW_SYSICON
dsi_Shield: mox.enums.moX_DRAW_SYSICON
dtf_LEFT: mox.enums.moX_DRAW_TXT_FMT
dtf_TOP: mox.enums.moX_DRAW_TXT_FMT
dtf_CENTER: mox.enums.moX_DRAW_TXT_FMT
dtf_RIGHT: mox.enums.moX_DRAW_TXT_FMT
dtf_VCENTER: mox.enums.moX_DRAW_TXT_FMT
dtf_BOTTOM: mox.enums.moX_DRAW_TXT_FMT
dtf_WORDBREAK: mox.enums.moX_DRAW_TXT_FMT
dtf_SINGLELINE: mox.enums.moX_DRAW_TXT_FMT
dtf_EXPANDTABS: mox.enums.moX_DRAW_TXT_FMT
dtf_TABSTOP: mox.enums.moX_DRAW_TXT_FMT
dtf_NOCLIP: mox.enums.moX_DRAW_TXT_FMT
dtf_EXTERNALLEADING: mox.enums.moX_DRAW_TXT_FMT
dtf_CALCRECT: mox.enums.moX_DRAW_TXT_FMT
dtf_NOPREFIX: mox.enums.moX_DRAW_TXT_FMT
dtf_INTERNAL: mox.enums.moX_DRAW_TXT_FMT
dtf_EDITCONTROL: mox.enums.moX_DRAW_TXT_FMT
dtf_PATH_ELLIPSIS: mox.enums.moX_DRAW_TXT_FMT
dtf_END_ELLIPSIS: mox.enums.moX_DRAW_TXT_FMT
dtf_MODIFYSTRING: mox.enums.moX_DRAW_TXT_FMT
dtf_WORD_ELLIPSIS: mox.enums.moX_DRAW_TXT_FMT
dtf_HIDEPREFIX: mox.enums.moX_DRAW_TXT_FMT
dtf_PREFIXONLY: mox.enums.moX_DRAW_TXT_FMT
FDT_SYSTEMDEFAULT: mox.enums.FONT_DEFAULT_TYPE
FDT_ICONTITLE: mox.enums.FONT_DEFAULT_TYPE
FDT_CAPTION: mox.enums.FONT_DEFAULT_TYPE
FDT_SMALLCAPTION: mox.enums.FONT_DEFAULT_TYPE
FDT_MENU: mox.enums.FONT_DEFAULT_TYPE
FDT_STATUS: mox.enums.FONT_DEFAULT_TYPE
FDT_DIALOG: mox.enums.FONT_DEFAULT_TYPE
fntP_Default: mox.enums.moX_FONT_PITCH
fntP_Fixed: mox.enums.moX_FONT_PITCH
fntP_Variable: mox.enums.moX_FONT_PITCH
fntF_DontCare: mox.enums.moX_FONT_FAMILY
fntF_Roman: mox.enums.moX_FONT_FAMILY
fntF_Swiss: mox.enums.moX_FONT_FAMILY
fntF_Modern: mox.enums.moX_FONT_FAMILY
fntF_Script: mox.enums.moX_FONT_FAMILY
fntF_Decorative: mox.enums.moX_FONT_FAMILY
moxbls_SLOWEST: mox.enums.MOX_FRM_BLENDSPEED
moxbls_SLOW: mox.enums.MOX_FRM_BLENDSPEED
moxbls_MEDIUM: mox.enums.MOX_FRM_BLENDSPEED
moxbls_FAST: mox.enums.MOX_FRM_BLENDSPEED
moxbls_FASTEST: mox.enums.MOX_FRM_BLENDSPEED
moxbln_ERROR: mox.enums.MOX_FRM_BLENDRESULT
moxbln_ERRORBUSY: mox.enums.MOX_FRM_BLENDRESULT
moxbln_ERRORNOTSUPPORTED: mox.enums.MOX_FRM_BLENDRESULT
moxbln_OK: mox.enums.MOX_FRM_BLENDRESULT
moxmeb_LeftButton: mox.enums.MOX_ME_BUTTON
moxmeb_RightButton: mox.enums.MOX_ME_BUTTON
moxmeb_MiddleButton: mox.enums.MOX_ME_BUTTON
moxmeb_XButton1: mox.enums.MOX_ME_BUTTON
moxmeb_XButton2: mox.enums.MOX_ME_BUTTON
moxmem_Enter: mox.enums.MOX_ME_MOVE_EVENT
moxmem_Move: mox.enums.MOX_ME_MOVE_EVENT
moxmem_Leave: mox.enums.MOX_ME_MOVE_EVENT
moxmeb_MouseDown: mox.enums.MOX_ME_BUTTON_EVENT
moxmeb_MouseUp: mox.enums.MOX_ME_BUTTON_EVENT
moxmeb_MouseClick: mox.enums.MOX_ME_BUTTON_EVENT
moxmeb_MouseDblClick: mox.enums.MOX_ME_BUTTON_EVENT
sff_SCREENFONTS: mox.enums.SHOW_FONT_FONTTYPE
sff_PRINTERFONTS: mox.enums.SHOW_FONT_FONTTYPE
sff_BOTH: mox.enums.SHOW_FONT_FONTTYPE
iv_DEFAULT: mox.enums.OFN_InitialView
iv_ICON: mox.enums.OFN_InitialView
iv_LIST: mox.enums.OFN_InitialView
iv_REPORT: mox.enums.OFN_InitialView
iv_THUMBNAIL: mox.enums.OFN_InitialView
iv_TILE: mox.enums.OFN_InitialView
FA_READONLY: mox.enums.MOX_FS_FILEATTRIBUTES
FA_HIDDEN: mox.enums.MOX_FS_FILEATTRIBUTES
FA_SYSTEM: mox.enums.MOX_FS_FILEATTRIBUTES
FA_VOLUME: mox.enums.MOX_FS_FILEATTRIBUTES
FA_DIRECTORY: mox.enums.MOX_FS_FILEATTRIBUTES
FA_ARCHIVE: mox.enums.MOX_FS_FILEATTRIBUTES
FA_NORMAL: mox.enums.MOX_FS_FILEATTRIBUTES
FA_TEMPORARY: mox.enums.MOX_FS_FILEATTRIBUTES
FA_ALIAS: mox.enums.MOX_FS_FILEATTRIBUTES
FA_COMPRESSED: mox.enums.MOX_FS_FILEATTRIBUTES
ICON_16: mox.enums.MOX_FS_ICONSIZE
ICON_32: mox.enums.MOX_FS_ICONSIZE
ICONSTATE_NORMAL: mox.enums.MOX_FS_ICONSTATE
ICONSTATE_FOCUS: mox.enums.MOX_FS_ICONSTATE
ICONSTATE_SELECTED: mox.enums.MOX_FS_ICONSTATE
ICONSTATE_OPEN_NORMAL: mox.enums.MOX_FS_ICONSTATE
ICONSTATE_OPEN_FOCUS: mox.enums.MOX_FS_ICONSTATE
ICONSTATE_OPEN_SELECTED: mox.enums.MOX_FS_ICONSTATE
Application: mox.enums.MOX_FS_STDPATH
Windows: mox.enums.MOX_FS_STDPATH
WinSystem: mox.enums.MOX_FS_STDPATH
Temp: mox.enums.MOX_FS_STDPATH
Fonts: mox.enums.MOX_FS_STDPATH
CommonAppData: mox.enums.MOX_FS_STDPATH
CommonTemplates: mox.enums.MOX_FS_STDPATH
CommonDocuments: mox.enums.MOX_FS_STDPATH
CommonPictures: mox.enums.MOX_FS_STDPATH
CommonMusic: mox.enums.MOX_FS_STDPATH
CommonVideo: mox.enums.MOX_FS_STDPATH
UserAppData: mox.enums.MOX_FS_STDPATH
UserTemplates: mox.enums.MOX_FS_STDPATH
UserDocuments: mox.enums.MOX_FS_STDPATH
UserPictures: mox.enums.MOX_FS_STDPATH
UserMusic: mox.enums.MOX_FS_STDPATH
UserVideo: mox.enums.MOX_FS_STDPATH
DT_UNKNOWN: mox.enums.MOX_FS_DRIVETYPE
DT_ABSENT: mox.enums.MOX_FS_DRIVETYPE
DT_REMOVABLE: mox.enums.MOX_FS_DRIVETYPE
DT_FIXED: mox.enums.MOX_FS_DRIVETYPE
DT_REMOTE: mox.enums.MOX_FS_DRIVETYPE
DT_CDROM: mox.enums.MOX_FS_DRIVETYPE
DT_RAMDISK: mox.enums.MOX_FS_DRIVETYPE
DT_DVDROM: mox.enums.MOX_FS_DRIVETYPE
moxfsw_CHANGE_FILE_NAME: mox.enums.MOX_FSW_FILTER
moxfsw_CHANGE_DIR_NAME: mox.enums.MOX_FSW_FILTER
moxfsw_CHANGE_ATTRIBUTES: mox.enums.MOX_FSW_FILTER
moxfsw_CHANGE_SIZE: mox.enums.MOX_FSW_FILTER
moxfsw_CHANGE_LAST_WRITE: mox.enums.MOX_FSW_FILTER
moxfsw_CHANGE_SECURITY: mox.enums.MOX_FSW_FILTER
os_UNKNOWN: mox.enums.SYS_OS_VERSION
os_95: mox.enums.SYS_OS_VERSION
os_95_OSR2: mox.enums.SYS_OS_VERSION
os_98: mox.enums.SYS_OS_VERSION
os_98SE: mox.enums.SYS_OS_VERSION
os_ME: mox.enums.SYS_OS_VERSION
os_NT351: mox.enums.SYS_OS_VERSION
os_NT4: mox.enums.SYS_OS_VERSION
os_2K: mox.enums.SYS_OS_VERSION
os_XP: mox.enums.SYS_OS_VERSION
os_XPx64: mox.enums.SYS_OS_VERSION
os_SERVER_2003: mox.enums.SYS_OS_VERSION
os_SERVER_2003R2: mox.enums.SYS_OS_VERSION
os_Vista: mox.enums.SYS_OS_VERSION
os_SERVER_2008: mox.enums.SYS_OS_VERSION
os_SERVER_2008R2: mox.enums.SYS_OS_VERSION
os_WINDOWS_7: mox.enums.SYS_OS_VERSION
os_SERVER_2012: mox.enums.SYS_OS_VERSION
os_WINDOWS_8: mox.enums.SYS_OS_VERSION
os_NewerVersion: mox.enums.SYS_OS_VERSION
osex_NONE: mox.enums.SYS_OS_VERSION_EX
osex_NT4_Workstation: mox.enums.SYS_OS_VERSION_EX
osex_NT4_Server: mox.enums.SYS_OS_VERSION_EX
osex_NT4_EnterpriseServer: mox.enums.SYS_OS_VERSION_EX
osex_W2K_Workstation: mox.enums.SYS_OS_VERSION_EX
osex_W2K_Server: mox.enums.SYS_OS_VERSION_EX
osex_W2K_DatacenterServer: mox.enums.SYS_OS_VERSION_EX
osex_W2K_AdvancedServer: mox.enums.SYS_OS_VERSION_EX
osex_XP_Home: mox.enums.SYS_OS_VERSION_EX
osex_XP_Professional: mox.enums.SYS_OS_VERSION_EX
osex_XP_MediaCenter: mox.enums.SYS_OS_VERSION_EX
osex_XP_Embedded: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_Server: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_DatacenterServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_EnterpriseServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_WebServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_ComputeClusterServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2003_R2StorageServer: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Unlicensed: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Starter: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Basic: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Premium: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Business: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Enterprise: mox.enums.SYS_OS_VERSION_EX
osex_Vista_Ultimate: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_Unlicensed: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_ServerHome: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_Server: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_SmallBusinessServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_EnterpriseServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_DatacenterServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_WebServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_StorageServer: mox.enums.SYS_OS_VERSION_EX
osex_SRV2008_ComputeClusterServer: mox.enums.SYS_OS_VERSION_EX
osex_UNLICENSED: mox.enums.SYS_OS_VERSION_EX
osex_STARTER: mox.enums.SYS_OS_VERSION_EX
osex_HOME_BASIC: mox.enums.SYS_OS_VERSION_EX
osex_HOME_PREMIUM: mox.enums.SYS_OS_VERSION_EX
osex_HOME_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_HOME_PREMIUM_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_BUSINESS: mox.enums.SYS_OS_VERSION_EX
osex_PROFESSIONAL: mox.enums.SYS_OS_VERSION_EX
osex_PROFESSIONAL_WMC: mox.enums.SYS_OS_VERSION_EX
osex_ULTIMATE: mox.enums.SYS_OS_VERSION_EX
osex_CORE: mox.enums.SYS_OS_VERSION_EX
osex_STANDARD_EVALUATION_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STANDARD_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STANDARD_SERVER_SOLUTIONS: mox.enums.SYS_OS_VERSION_EX
osex_DATACENTER_EVALUATION_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_DATACENTER_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_ENTERPRISE_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_EXPRESS_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_STANDARD_EVALUATION_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_STANDARD_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_WORKGROUP_EVALUATION_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_STORAGE_WORKGROUP_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_ESSENTIALBUSINESS_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_SMALLBUSINESS_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_SMALLBUSINESS_SERVER_PREMIUM: mox.enums.SYS_OS_VERSION_EX
osex_SB_SOLUTION_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_SERVER_FOR_SB_SOLUTIONS: mox.enums.SYS_OS_VERSION_EX
osex_SERVER_FOR_SMALLBUSINESS: mox.enums.SYS_OS_VERSION_EX
osex_MEDIUMBUSINESS_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_ENTERPRISE_EVALUATION: mox.enums.SYS_OS_VERSION_EX
osex_ENTERPRISE: mox.enums.SYS_OS_VERSION_EX
osex_ENTERPRISE_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_WEB_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_CLUSTER_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_HYPERV_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_MULTIPOINT_SERVER: mox.enums.SYS_OS_VERSION_EX
osex_SERVER_FOUNDATION: mox.enums.SYS_OS_VERSION_EX
osbm_Normal: mox.enums.SYS_OS_BOOTMODE
osbm_Save: mox.enums.SYS_OS_BOOTMODE
osbm_SaveNetwork: mox.enums.SYS_OS_BOOTMODE
snd_StandardBeep: mox.enums.SYS_SYSTEMSOUND
snd_OK: mox.enums.SYS_SYSTEMSOUND
snd_Hand: mox.enums.SYS_SYSTEMSOUND
snd_Question: mox.enums.SYS_SYSTEMSOUND
snd_Exclamation: mox.enums.SYS_SYSTEMSOUND
snd_Asterix: mox.enums.SYS_SYSTEMSOUND
snds_AccessDenied: mox.enums.SYS_SPECIALSOUND
snds_Boing: mox.enums.SYS_SPECIALSOUND
snds_Buzzer: mox.enums.SYS_SPECIALSOUND
snds_Sirens: mox.enums.SYS_SPECIALSOUND
snds_Whoops: mox.enums.SYS_SPECIALSOUND
snds_FRT: mox.enums.SYS_SPECIALSOUND
F1: mox.enums.KB_F
F2: mox.enums.KB_F
F3: mox.enums.KB_F
F4: mox.enums.KB_F
F5: mox.enums.KB_F
F6: mox.enums.KB_F
F7: mox.enums.KB_F
F8: mox.enums.KB_F
F9: mox.enums.KB_F
F10: mox.enums.KB_F
F11: mox.enums.KB_F
F12: mox.enums.KB_F
F13: mox.enums.KB_F
F14: mox.enums.KB_F
F15: mox.enums.KB_F
F16: mox.enums.KB_F
F17: mox.enums.KB_F
F18: mox.enums.KB_F
F19: mox.enums.KB_F
F20: mox.enums.KB_F
F21: mox.enums.KB_F
F22: mox.enums.KB_F
F23: mox.enums.KB_F
F24: mox.enums.KB_F
ldt_SystemDefault: mox.enums.LOCALE_DEFAULT_TYPE
ldt_UserDefault: mox.enums.LOCALE_DEFAULT_TYPE
li_iLanguageID: mox.enums.LOCALE_INFO
li_sLanguageName: mox.enums.LOCALE_INFO
li_sEngLanguage: mox.enums.LOCALE_INFO
li_sAbbrevLanguageName: mox.enums.LOCALE_INFO
li_sNativeLanguageName: mox.enums.LOCALE_INFO
li_iCountryCode: mox.enums.LOCALE_INFO
li_sCountryName: mox.enums.LOCALE_INFO
li_sEngCountryName: mox.enums.LOCALE_INFO
li_sAbbrevCountryName: mox.enums.LOCALE_INFO
li_sNativeCountryName: mox.enums.LOCALE_INFO
li_iDefaultLanguageID: mox.enums.LOCALE_INFO
li_iDefaultCountryCode: mox.enums.LOCALE_INFO
li_iDefaultCodepage: mox.enums.LOCALE_INFO
li_iMeasure: mox.enums.LOCALE_INFO_NUMBERS
li_sListSeparator: mox.enums.LOCALE_INFO_NUMBERS
li_sDecimalSeparator: mox.enums.LOCALE_INFO_NUMBERS
li_sThousandSeparator: mox.enums.LOCALE_INFO_NUMBERS
li_sGrouping: mox.enums.LOCALE_INFO_NUMBERS
li_iDigits: mox.enums.LOCALE_INFO_NUMBERS
li_iLeadingZero: mox.enums.LOCALE_INFO_NUMBERS
li_sPositiveSign: mox.enums.LOCALE_INFO_NUMBERS
li_sNegativeSign: mox.enums.LOCALE_INFO_NUMBERS
li_sNativeDigits: mox.enums.LOCALE_INFO_NUMBERS
li_iIntlCurrDigits: mox.enums.LOCALE_INFO_NUMBERS
li_sCurrencySymbol: mox.enums.LOCALE_INFO_CURRENCY
li_sCurrencyIntlSymbol: mox.enums.LOCALE_INFO_CURRENCY
li_sCurrencyDecimalSeparator: mox.enums.LOCALE_INFO_CURRENCY
li_sCurrencyThousandSeparator: mox.enums.LOCALE_INFO_CURRENCY
li_sCurrencyGrouping: mox.enums.LOCALE_INFO_CURRENCY
li_iCurrencyDigits: mox.enums.LOCALE_INFO_CURRENCY
li_iCurrencySymbolShow: mox.enums.LOCALE_INFO_CURRENCY
li_iCurrencyNegativePrefix: mox.enums.LOCALE_INFO_CURRENCY
li_sDateSeparator: mox.enums.LOCALE_INFO_DATETIME
li_sTimeSeparator: mox.enums.LOCALE_INFO_DATETIME
li_sShortDateFormat: mox.enums.LOCALE_INFO_DATETIME
li_sLongDateFormat: mox.enums.LOCALE_INFO_DATETIME
li_sTimeFormat: mox.enums.LOCALE_INFO_DATETIME
li_iTime24HourFmt: mox.enums.LOCALE_INFO_DATETIME
li_s1159_AM: mox.enums.LOCALE_INFO_DATETIME
li_s2359_PM: mox.enums.LOCALE_INFO_DATETIME
li_iDateGrouping: mox.enums.LOCALE_INFO_DATETIME
li_iLDate: mox.enums.LOCALE_INFO_DATETIME
li_iCenturyTwoFourDigits: mox.enums.LOCALE_INFO_DATETIME
li_iTimeLeadingZero: mox.enums.LOCALE_INFO_DATETIME
li_iDayLeadingZero: mox.enums.LOCALE_INFO_DATETIME
li_iMonthLeadingZero: mox.enums.LOCALE_INFO_DATETIME
li_sDayName1: mox.enums.LOCALE_INFO_DATETIME
li_sDayName2: mox.enums.LOCALE_INFO_DATETIME
li_sDayName3: mox.enums.LOCALE_INFO_DATETIME
li_sDayName4: mox.enums.LOCALE_INFO_DATETIME
li_sDayName5: mox.enums.LOCALE_INFO_DATETIME
li_sDayName6: mox.enums.LOCALE_INFO_DATETIME
li_sDayName7: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName1: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName2: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName3: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName4: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName5: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName6: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevDayName7: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName1: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName2: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName3: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName4: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName5: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName6: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName7: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName8: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName9: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName10: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName11: mox.enums.LOCALE_INFO_DATETIME
li_sMonthName12: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName1: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName2: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName3: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName4: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName5: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName6: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName7: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName8: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName9: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName10: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName11: mox.enums.LOCALE_INFO_DATETIME
li_sAbbrevMonthName12: mox.enums.LOCALE_INFO_DATETIME
HKEY_CLASSES_ROOT: mox.enums.REG_ROOTKEY
HKEY_CURRENT_USER: mox.enums.REG_ROOTKEY
HKEY_LOCAL_MACHINE: mox.enums.REG_ROOTKEY
HKEY_USERS: mox.enums.REG_ROOTKEY
HKEY_PERFORMANCE_DATA: mox.enums.REG_ROOTKEY
HKEY_CURRENT_CONFIG: mox.enums.REG_ROOTKEY
HKEY_DYN_DATA: mox.enums.REG_ROOTKEY
INIE_UNKNOWN: mox.enums.INET_IE_VER
INIE_3: mox.enums.INET_IE_VER
INIE_4: mox.enums.INET_IE_VER
INIE_5_OrHigher: mox.enums.INET_IE_VER
INCT_UNKNOWN: mox.enums.INET_CONNECTION_TYPE
INCT_MODEM: mox.enums.INET_CONNECTION_TYPE
INCT_LAN: mox.enums.INET_CONNECTION_TYPE
INPT_AUTO: mox.enums.INET_CONNECTION_PROXYTYPE
INPT_NOPROXY: mox.enums.INET_CONNECTION_PROXYTYPE
INPT_PROXY: mox.enums.INET_CONNECTION_PROXYTYPE
INPR_DEFAULT_PORT: mox.enums.INET_CONNECTION_PORT
INPR_FTP_PORT_21: mox.enums.INET_CONNECTION_PORT
INPR_GOPHER_PORT_70: mox.enums.INET_CONNECTION_PORT
INPR_HTTP_PORT_80: mox.enums.INET_CONNECTION_PORT
INPR_HTTPS_PORT_443: mox.enums.INET_CONNECTION_PORT
INPR_SOCKS_PORT_1080: mox.enums.INET_CONNECTION_PORT
INPR_USERDEFINED_PORT: mox.enums.INET_CONNECTION_PORT
INCS_DISCONNECTING: mox.enums.INET_CONNECTION_STATE
INCS_DISCONNECTED: mox.enums.INET_CONNECTION_STATE
INCS_CONNECTING: mox.enums.INET_CONNECTION_STATE
INCS_CONNECTED_IDLE: mox.enums.INET_CONNECTION_STATE
INCS_CONNECTED_BUSY: mox.enums.INET_CONNECTION_STATE
INCCR_ERR_UNKNOWN: mox.enums.INET_CONNECTION_CONNECT_RESULT
INCCR_ERR_INET: mox.enums.INET_CONNECTION_CONNECT_RESULT
INCCR_ERR_SERVERLOGIN: mox.enums.INET_CONNECTION_CONNECT_RESULT
INCCR_ERR_SERVER: mox.enums.INET_CONNECTION_CONNECT_RESULT
INCCR_OK: mox.enums.INET_CONNECTION_CONNECT_RESULT
INSGF_ERROR: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_OK: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_CREATED: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_ACCEPTED: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_NOCONTENT: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_MOVEDPERMANENTLY: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_MOVEDTEMPORARLILY: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_NOTMODIFIED: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_BADREQUEST: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_UNAUTHORIZED: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_FORBIDDEN: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_NOTFOUND: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_SERVERERROR: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_NOTIMPLEMENTED: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_BADGATEWAY: mox.enums.INET_CONNECTION_SERVER_FILERESULT
INSGF_SERVICEUNAVAILABLE: mox.enums.INET_CONNECTION_SERVER_FILERESULT
IRUR_ERROR: mox.enums.INET_READ_URL_RESULT
IRUR_OK: mox.enums.INET_READ_URL_RESULT
IRUR_ERROR_INITCONNECTION: mox.enums.INET_READ_URL_RESULT
IRUR_ERROR_URLCONNECTION: mox.enums.INET_READ_URL_RESULT
IRUR_CANCELLED: mox.enums.INET_READ_URL_RESULT
INC_FTP_TRANSFER_TYPE_ASCII: mox.enums.INET_CONNECTION_FTP_TRANSFER_TYPE
INC_FTP_TRANSFER_TYPE_BINARY: mox.enums.INET_CONNECTION_FTP_TRANSFER_TYPE
