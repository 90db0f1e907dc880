"""What a walk knows of the main window beyond the names of its controls."""

RATES = ["txtTalkSpeedMale", "txtTalkSpeedFemale"]
VOLUMES = ["txtTalkVolumeMale", "txtTalkVolumeFemale"]
DAYS = ["txtLogConversationsDaysToKeep", "txtLogDebugDaysToKeep"]
NUMBER_BOXES = RATES + VOLUMES + DAYS
TESTS = ["cmdSpeedTestMale", "cmdSpeedTestFemale"]

# The lists of contacts, and the lines of the page list that show them.
CONTACT_LISTS = {"lstBuddyNames": 4, "lstIgnore": 5, "lstGender": 6}
FRAME_COUNT = 16
# The frames by the lines of the page list; two are free, and the last opens from a contact.
PAGES = [0, 1, 2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 14]

# A control, and the box while whose tick it can be used.
ENABLED_BY = {
    "txtIntroductionText": "chkIntroduce", "chkFirstName": "chkIntroduceUser",
    "ocxHotKeySilent": "chkScrollLock", "ocxSpeakMsg1": "chkUseRepeat",
    "txtSpokenMessages": "chkUseRepeat", "chkLogDebugCleanUp": "chkDebug",
    "chkLogConversationsCleanUp": "chkSaveConversations",
    "txtBuddyNamesFriendlyName": "chkUseMyNamesInsteadOfBuddyNames",
}
# The options of which exactly one is chosen.
GROUPS = [["optMale", "optFemale"]] + [
    [f"opt{page}Sort{order}" for order in ("Contact", "Email", "Name")]
    for page in ("BuddyNames", "Ignore", "Gender")]

# What decides how a message or a state is said.
SENTENCE_CONTROLS = ["chkIntroduceUser", "chkFirstName", "chkUseMyNamesInsteadOfBuddyNames",
                     "txtSays", "txtOnline"]
# Texts that are kept, with what an empty one is kept as.
KEPT_TEXTS = {
    **dict.fromkeys(["txtIntroductionText", "txtOnline", "txtOffline", "txtAway", "txtBusy",
                     "txtSays"], " "),
    **dict.fromkeys(RATES, "0"), **dict.fromkeys(VOLUMES, "100"), **dict.fromkeys(DAYS, "7"),
}
KEPT_OPTIONS = [option for group in GROUPS for option in group]
# Ticked for the contact that is being edited.
NOT_KEPT_BOX = "chkBuddyNamesIgnore"

# Each click builds the list of contacts anew.
SORT_OPTIONS = ["optBuddyNamesSortContact", "optBuddyNamesSortEmail", "optBuddyNamesSortName"]

# Mouse messages of the tray icon.
LEFT_BUTTON_UP, LEFT_DOUBLE_CLICK, RIGHT_BUTTON_UP = 514, 515, 517
SPACE = 32
