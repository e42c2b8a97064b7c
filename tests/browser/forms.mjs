// Forms of the console and one of its property sheets.
import { Button, Check, Combo, Frame, Label, List, ListView, Option, Text } from "./controls.mjs";

const okCancel = [Button("cmdOK", "OK", { default: true }), Button("cmdCancel", "&Cancel", { cancel: true })];

export function NameForm(more = {}, text = {}) {
  return {
    name: "frmFilterItem",
    caption: "Add New Filter Item",
    height: 2265,
    size: "small",
    controls: [
      Frame("Frame2", "General Properties"),
      Label("Label1", "&Name:", { parent: "Frame2" }),
      Text("txtName", "", { parent: "Frame2", maxLength: 127, ...text }),
      Check("chkStatus", "Filter is &Enabled", true, { parent: "Frame2" }),
      ...okCancel,
      Label(
        "Label2",
        "Filters are currently disabled, so this filter will not occur until you have enabled the Quillvane Message Filter under the Filter options for the server.",
        { look: "notice" },
      ),
    ],
    layout: {
      kind: "column",
      items: [
        {
          kind: "frame",
          control: "Frame2",
          items: [
            { kind: "field", label: "Label1", control: "txtName", grow: true },
            { kind: "control", control: "chkStatus" },
          ],
        },
        { kind: "control", control: "Label2" },
        { kind: "buttons", items: ["cmdOK", "cmdCancel"] },
      ],
    },
    ...more,
  };
}

const criteria = [
  "Where the Subject header line contains specific words",
  "Where the message body contains specific words",
  "Where the From header line contains people or specific words",
  "Where the message has an attachment of a type",
  "Where the message size is more than a limit",
  "Where the sender's address is in a list",
  "Where the message is marked as spam with a high confidence and came through a connector of this server",
  "Where the postoffice of the recipient is in a list",
  "Where the message is encrypted",
];

export function ManageForm(more = {}) {
  return {
    name: "frmManage",
    caption: "Filter Management",
    height: 8775,
    size: "medium",
    controls: [
      Frame("Frame1", "Criteria"),
      Label(
        "Label1",
        "Enable the criteria which will be checked for this filter. If any of the criteria is met, then the action(s) will be performed. Double click an item to edit its properties.",
        { parent: "Frame1", look: "help" },
      ),
      Option("optStandardCriteria", "Use standard criteria", true, { parent: "Frame1" }),
      Option("optAdvancedScripting", "Use a criteria script", false, { parent: "Frame1" }),
      Button("cmdAdvancedScripting", "Edit script...", { parent: "Frame1", enabled: false }),
      ListView(
        "lvwCriteria",
        [
          { key: "status", caption: "Status", width: 1300 },
          { key: "description", caption: "Description", width: 5600 },
        ],
        criteria.map((text, n) => ({ key: `C${n}`, text: n % 3 ? "Disabled" : "Enabled", cells: [text], checked: false })),
        { parent: "Frame1" },
      ),
      Frame("Frame2", "Actions"),
      Label(
        "Label2",
        "Add the actions that will be performed when the above criteria are met. Double click an item to edit its properties.",
        { parent: "Frame2", look: "help" },
      ),
      ListView(
        "lvwActions",
        [],
        ["Move the message to a folder", "Notify the postmaster", "Delete the message"].map((text, n) => ({
          key: `A${n}`,
          text,
          cells: [],
          checked: n !== 1,
        })),
        { parent: "Frame2", checkboxes: true, selected: 1 },
      ),
      Button("cmdAdd", "Add Action...", { parent: "Frame2" }),
      Button("cmdDelete", "Delete Action", { parent: "Frame2" }),
      Button("cmdUp", "", { parent: "Frame2", picture: "up", tip: "Move action up" }),
      Button("cmdDown", "", { parent: "Frame2", picture: "down", tip: "Move action down" }),
      Label(
        "lblDisabled",
        "Filters are currently disabled, so this filter will not occur until you have enabled filters on the server. This can be done under the Servers|[Servername]|Filters item.",
        { look: "notice" },
      ),
      Button("cmdClose", "Close"),
    ],
    layout: {
      kind: "column",
      items: [
        {
          kind: "frame",
          control: "Frame1",
          items: [
            { kind: "control", control: "Label1" },
            {
              kind: "row",
              items: [
                { kind: "control", control: "optStandardCriteria" },
                { kind: "control", control: "optAdvancedScripting" },
                { kind: "control", control: "cmdAdvancedScripting" },
              ],
            },
            { kind: "control", control: "lvwCriteria", grow: true, lines: 7 },
          ],
        },
        {
          kind: "frame",
          control: "Frame2",
          items: [
            { kind: "control", control: "Label2" },
            {
              kind: "side",
              main: { kind: "control", control: "lvwActions", grow: true, lines: 5 },
              buttons: ["cmdAdd", "cmdDelete", "cmdUp", "cmdDown"],
            },
          ],
        },
        { kind: "control", control: "lblDisabled" },
        { kind: "buttons", items: ["cmdClose"] },
      ],
    },
    ...more,
  };
}

export function WordsForm(more = {}) {
  return {
    name: "frmCriteriaWordList",
    caption: "Subject Contains Words",
    height: 0,
    size: "medium",
    controls: [
      Check("chkStatus", "Criteria is Enabled", true),
      Frame("Frame1", "Words"),
      Option("optList", "Look for these words:", true, { parent: "Frame1" }),
      List("lstTokens", ["free money", "lottery", "prize", "viagra & more"], 1, { parent: "Frame1" }),
      Text("txtWords", "", { parent: "Frame1", maxLength: 60 }),
      Button("cmdAddWord", "&Add", { parent: "Frame1" }),
      Button("cmdRemove", "&Remove", { parent: "Frame1" }),
      Option("optFile", "Use a &word file:", false, { parent: "Frame1" }),
      Combo("cboPattern", ["adult", "finance", "gambling"], 1, { parent: "Frame1", enabled: false }),
      Button("cmdEdit", "&Edit...", { parent: "Frame1", enabled: false }),
      Label("Label1", "Weight:"),
      Text("txtWeight", "25", { maxLength: 3, keys: "0123456789" }),
      Label("Label2", "percent"),
      Label("Label3", "&Note:"),
      Text("txtNote", "First line\r\nSecond line", { multiline: true }),
      ...okCancel,
    ],
    layout: {
      kind: "column",
      items: [
        { kind: "control", control: "chkStatus" },
        {
          kind: "frame",
          control: "Frame1",
          items: [
            { kind: "control", control: "optList" },
            {
              kind: "indent",
              items: [
                {
                  kind: "side",
                  main: {
                    kind: "column",
                    items: [
                      { kind: "control", control: "txtWords", grow: true },
                      { kind: "control", control: "lstTokens", grow: true, lines: 5 },
                    ],
                  },
                  buttons: ["cmdAddWord", "cmdRemove"],
                },
              ],
            },
            { kind: "control", control: "optFile" },
            {
              kind: "indent",
              items: [
                {
                  kind: "row",
                  items: [
                    { kind: "control", control: "cboPattern", grow: true },
                    { kind: "control", control: "cmdEdit" },
                  ],
                },
              ],
            },
          ],
        },
        { kind: "field", label: "Label1", control: "txtWeight", hints: ["Label2"] },
        { kind: "field", label: "Label3", control: "txtNote", grow: true, lines: 3 },
        { kind: "buttons", items: ["cmdOK", "cmdCancel"] },
      ],
    },
    ...more,
  };
}

export const kScript =
  "' Mail from the press office\r\nDim Met\r\nIf CriteriaMet([QV_SUBJECT],\"press\") Then\r\n    Met = Len(\"a\") + 1\r\n" +
  "    FilterResult = True\r\nEnd If\r\n";

export function ScriptForm(more = {}, text = {}) {
  return {
    name: "frmScriptEditor",
    caption: "Advanced Criteria Script Editor",
    height: 0,
    size: "medium",
    controls: [
      Label("Label1", "Type the script that decides."),
      Label("Label2", "&Script:"),
      Text("txtCondition", kScript, { multiline: true, code: true, ...text }),
      Label("Label3", "&Tokens:"),
      List("lstTokens", ["[QV_SUBJECT]", "[QV_BODY]", "[QV_FROM]"], -1),
      Button("cmdCheck", "Chec&k"),
      Button("cmdExit", "Save and exit"),
      Button("cmdCancel", "&Cancel", { cancel: true }),
    ],
    layout: {
      kind: "column",
      items: [
        { kind: "control", control: "Label1" },
        { kind: "field", label: "Label2", control: "txtCondition", grow: true, lines: 14 },
        { kind: "field", label: "Label3", control: "lstTokens", lines: 3 },
        { kind: "buttons", items: ["cmdCheck", "cmdExit", "cmdCancel"] },
      ],
    },
    ...more,
  };
}

export function MailboxSheet(more = {}) {
  const rows = ["Holiday answers", "Mailing lists", "Private"].map((text, n) => ({
    key: `FLT${n}`,
    text,
    cells: [n === 1 ? "Disabled" : "Enabled"],
    checked: false,
  }));
  const off = { enabled: false };
  return {
    title: "anna Properties",
    pages: [
      { name: "ppgMailboxFilters", caption: "Filters", help: true },
      { name: "ppgOther", caption: "Quota", help: false },
    ],
    active: 0,
    changed: false,
    form: {
      name: "ppgMailboxFilters",
      caption: "Filters",
      height: 0,
      size: "medium",
      controls: [
        Check("chkEnabled", "Enable filters for this mailbox", true),
        Label("Label1", "Filters configured for mailbox. Double click filter to edit.", { look: "help" }),
        ListView(
          "lvwFilters",
          [
            { key: "name", caption: "Filter Name", width: 4200 },
            { key: "status", caption: "Status", width: 1400 },
          ],
          rows,
        ),
        Button("cmdAdd", "Add..."),
        Button("cmdEdit", "Edit...", off),
        Button("cmdDelete", "Delete..."),
        Button("cmdEnable", "Enable"),
        Button("cmdDisable", "Disable"),
        Button("cmdUp", "", { picture: "up", tip: "Move up", ...off }),
        Button("cmdDown", "", { picture: "down", tip: "Move down", ...off }),
      ],
      layout: {
        kind: "column",
        items: [
          { kind: "control", control: "chkEnabled" },
          { kind: "control", control: "Label1" },
          {
            kind: "side",
            main: { kind: "control", control: "lvwFilters", grow: true, lines: 8 },
            buttons: ["cmdAdd", "cmdEdit", "cmdDelete", "cmdEnable", "cmdDisable", "cmdUp", "cmdDown"],
          },
        ],
      },
    },
    ...more,
  };
}
