// tglyphora: the main window. The font list on the left, the two sample boxes on the
// right, the menus, the toolbar with its size box and the status bar; it owns every
// other window. Handlers are spread over the subsystem folders by what they do.
#pragma once

#include "browser/fontlistheader.h"

#include <QMainWindow>
#include <QStringList>

class QAction;
class QAbstractItemDelegate;
class QActionGroup;
class QComboBox;
class QLabel;
class QMenu;
class QStatusBar;
class QTimer;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class SampleBox;
class ScriptNotice;
class ctlEBSplitter;
class FontListFilter;
class FontNameDelegate;
class FontWatch;
class MeasureWorker;
class NeighbourPrep;
struct MeasuredText;

class tglyphora : public QMainWindow {
    Q_OBJECT
public:
    explicit tglyphora(QWidget* parent = nullptr);
    ~tglyphora() override;

    // The program's main window: the most recently created one that still exists.
    static tglyphora* instance();

    // Rebuilds the font list and resets the samples and the size box.
    void charge();
    // Measures Text2 on the printer and writes width and height into the status bar.
    void afficheinfos();

    // Controls other windows read.
    QTreeWidget* List1 = nullptr;
    SampleBox* Text1 = nullptr;
    SampleBox* Text2 = nullptr;
    QComboBox* Combo1 = nullptr;
    QToolBar* Toolbar1 = nullptr;
    QStatusBar* etat = nullptr;
    QWidget* Picture1 = nullptr; // hidden surface that carries the selected font
    QTimer* Timer1 = nullptr;
    ctlEBSplitter* ctlEBSplitter1 = nullptr;
    ctlEBSplitter* ctlEBSplitter2 = nullptr;
    QMenu* mdivers = nullptr;
    QMenu* moutils = nullptr;
    // The filter panel above the list (its family index serves other windows' filters).
    FontListFilter* filtre() const { return m_filtre; }

    // The toolbar buttons that hold the style state.
    enum StyleButton { BoldButton = 12, ItalicButton = 13, UnderlineButton = 14, StrikeButton = 15 };

    // Toolbar button n (1..21) and its value: 1 pressed, 0 released.
    QAction* Button(int n) const;
    int ButtonValue(int n) const;
    void setButtonValue(int n, int value);
    // Status bar panel n (1..7).
    QLabel* Panel(int n) const;
    QAction* munit(int index) const;
    QAction* ElemPol(int index) const;

    // The unit of measure (1..7) and the printer's name read at load.
    int unite() const { return m_unite; }
    QString CurrentPrinterName() const { return m_printerName; }
    QString UnitName(int code) const;
    // Width in pixels of the widest name, measured by charge.
    int widestNameWidth() const { return m_widestName; }
    // Sort state of the list: direction 0 ascending, 1 descending.
    int SortOrder() const { return m_sortOrder; }
    // Slideshow position: 1-based index of the last font shown.
    int slideshowPosition() const { return m_slidePosition; }

public Q_SLOTS:
    // Menu "&Polices"
    void ElemPol_Click(int Index);
    void mactualiser_Click();
    void mapercu_Click();
    void mfavori_Click();
    // Menu "&Divers"
    void mvisboucle_Click();
    void mcharmap_Click();
    void mautretable_Click();
    void mpagtst_Click();
    void mcreatefile_Click();
    void mimpnames_Click();
    void mopenfoldttf_Click();
    void mdesinst_Click();
    void mimgfond_Click();
    void mclipboard_Click();
    void mHTML_Click();
    void minfos_Click();
    void mobtain_Click();
    void mpreview_Click();
    void munit_Click(int Index);
    void msavepref_Click();
    void Mquit_Click();
    // Menu "&Edition"
    void malgauche_Click();
    void malcentre_Click();
    void maldrote_Click();
    void mbold_Click();
    void mital_Click();
    void msoul_Click();
    void mbar_Click();
    // Menu "&Outils"
    void municode_Click();
    void minstaller_Click();
    void mdetails_Click();
    // proofs (output/proofcommands.cpp)
    void mcomparer_Click();
    void mlistepdf_Click();
    void maperculiste_Click();
    // Menu "&Aide"
    void mabout_Click();

    void Toolbar1_ButtonClick(int Index);
    void Combo1_Click();
    void Combo1_KeyUp(int KeyCode, int Shift);
    void Text1_KeyUp(int KeyCode, int Shift);
    void Text2_KeyUp(int KeyCode, int Shift);
    void List1_Click();
    void List1_DblClick();
    void List1_KeyUp(int KeyCode, int Shift);
    void List1_ColumnClick(int ColumnIndex);
    void List1_MouseUp(int Button, int Shift, int X, int Y);
    void List1_BeforeLabelEdit(int& Cancel);
    void Timer1_Timer();

public:
    void setVisible(bool visible) override;

protected:
    void Form_Load();
    void Form_Resize();
    void Form_KeyDown(int KeyCode, int Shift);
    void Form_QueryUnload();
    void Form_Unload();

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenus();
    void buildToolbar();
    void buildStatusBar();
    void buildWorkArea();
    void showContextMenu(const QPoint& globalPos);
    // The window's key preview and mouse handling of its controls; true when consumed.
    bool previewEvent(QObject* watched, QEvent* event);

    // Font list (browser/fontlist.cpp)
    void ShowSelectedFont();
    void sortList();
    // Samples (browser/samplestyle.cpp)
    void applyBold();
    void applyItalic();
    void applyUnderline();
    void applyStrikethrough();
    void alignLeft();
    void alignCentre();
    void alignRight();
    void applySize();
    void chooseBackColor();
    void chooseForeColor();
    void toggleButton(int n);
    void applyFaceAndStyles(const QString& faceName);
    void nextSize(int step);
    void stopSlideshow();
    // Preferences (app/preferences.cpp)
    void restorePreferences();
    // Filter, favourites, names in their own font, following installs
    // (browser/fontlisttools.cpp)
    void buildFontListMenu(QMenu* mnupol);
    void fillFavouritesMenu();
    void updateFavouriteCaption();
    void fontsChanged();
    void syncList(const QStringList& names);
    // Measuring after a font is shown, off this thread, and preparing the fonts likely
    // to be shown next (browser/measure.cpp, browser/showahead.cpp)
    MeasureWorker* measureWorker();
    void measureShownFont();
    void showFigures(const MeasuredText& figures, int dpi, int scaleMode);
    void prepareNeighbours(bool afterShow = true);

    QWidget* m_workArea = nullptr;
    ScriptNotice* m_scriptNotice = nullptr; // under the samples, for faces of another script
    QActionGroup* m_alignGroup = nullptr;
    QList<QAction*> m_buttons;   // index 0 is button 1
    QList<QLabel*> m_panels;     // index 0 is panel 1
    QList<QAction*> m_munit;
    QList<QAction*> m_elemPol;
    FontListFilter* m_filtre = nullptr;
    FontWatch* m_fontWatch = nullptr;
    FontNameDelegate* m_nameDelegate = nullptr;
    QAbstractItemDelegate* m_plainDelegate = nullptr;
    QMenu* m_mnupol = nullptr;
    MeasureWorker* m_measureWorker = nullptr;
    NeighbourPrep* m_neighbourPrep = nullptr;
    int m_shownRow = 0;          // row last shown and the one shown before it, for
    int m_travelFrom = 0;        // the direction of travel
    QStringList m_unitNames;     // index 0 is code 1
    QString m_printerName;
    int m_unite = 6;
    int m_checkedUnit = -1;
    int m_sortOrder = 0;
    int m_sortKey = 0;
    int m_widestName = 0;
    int m_slidePosition = 0;
    bool m_loaded = false;
    // While loading, measurements are held and only the last one is made.
    bool m_holdMeasure = false;
    bool m_measurePending = false;
};
