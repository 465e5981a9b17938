VERSION 5.00
Begin VB.Form frmFrx 
   Caption         =   "Side file"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Icon            =   "frx_refs.frx":003D
   LinkTopic       =   "Form1"
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   StartUpPosition =   3  'Windows Default
   Begin VB.ListBox lstColors 
      Height          =   840
      ItemData        =   "frx_refs.frx":002F
      Left            =   2520
      List            =   "frx_refs.frx":001B
      TabIndex        =   1
      Top             =   120
      Width           =   1935
   End
   Begin VB.TextBox txtNotes 
      Height          =   975
      Left            =   120
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   0
      Text            =   $"frx_refs.frx":0000
      ToolTipText     =   "frx_refs.frx":004F
      Top             =   120
      Width           =   2295
   End
End
Attribute VB_Name = "frmFrx"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
