// dialogs
