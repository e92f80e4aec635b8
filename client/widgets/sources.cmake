# The widgets stand alone: the tests build them a second time, without the services.
set(widget_sources
    CalendarPopup.cpp
    CalendarPopup.h
    ComboSearchPopup.cpp
    ComboSearchPopup.h
    DateField.cpp
    DateField.h
    DateRules.cpp
    DateRules.h
    DecimalText.cpp
    DecimalText.h
    EvenRowDelegate.cpp
    EvenRowDelegate.h
    FieldHint.cpp
    FieldHint.h
    FittedFont.cpp
    FittedFont.h
    FormulaCompletion.cpp
    FormulaCompletion.h
    LettersAhead.cpp
    LettersAhead.h
    MessageBox.cpp
    MessageBox.h
    OrloAccountComboBox.cpp
    OrloAgreementSignWidget.cpp
    OrloComboBox.cpp
    OrloDateEdit.cpp
    OrloDecimalLineEdit.cpp
    OrloDoubleSpinBox.cpp
    OrloElidedLabel.cpp
    OrloFormulaNormal.cpp
    OrloFormulaPrompter.cpp
    OrloHintLabel.cpp
    OrloPushButton.cpp
    OrloSubTitleWidget.cpp
    OrloUtils.cpp
    OrloWidget.cpp
    PopupPlace.cpp
    PopupPlace.h
    Skins.cpp
    Skins.h
    SuggestionPopup.cpp
    SuggestionPopup.h
    VorSearchBox.cpp
    skins.qrc)
list(TRANSFORM widget_sources PREPEND ${PROJECT_SOURCE_DIR}/client/widgets/)

foreach(header
    OrloAccountComboBox
    OrloAgreementSignWidget
    OrloComboBox
    OrloDateEdit
    OrloDecimalLineEdit
    OrloDoubleSpinBox
    OrloElidedLabel
    OrloFormulaNormal
    OrloHintLabel
    OrloPushButton
    OrloSubTitleWidget
    VorSearchBox)
    list(APPEND widget_sources ${PROJECT_SOURCE_DIR}/platform/${header}.h)
endforeach()

list(APPEND widget_sources ${search_sources})
set_property(GLOBAL PROPERTY PLANDESK_WIDGET_SOURCES ${widget_sources})
target_sources(plandesk_platform PRIVATE ${widget_sources})
