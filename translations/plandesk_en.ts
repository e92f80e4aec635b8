<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="zh_CN">
<context>
    <name>Advisor</name>
    <message>
        <source>%1元</source>
        <translation>%1 yuan</translation>
    </message>
    <message>
        <source>%1股</source>
        <translation>%1 shares</translation>
    </message>
    <message>
        <source>期间%1个交易日</source>
        <translation>%1 trade days in the period</translation>
    </message>
    <message>
        <source>%1，不会完成：%2</source>
        <translation>%1, not complete: %2</translation>
    </message>
    <message>
        <source>%1，按现价不会成交</source>
        <translation>%1, no fills at the present price</translation>
    </message>
    <message>
        <source>%1，按现价只能部分成交，最后剩余%2</source>
        <translation>%1, only partly filled at the present price, %2 left at the end</translation>
    </message>
    <message>
        <source>休市</source>
        <translation>closed</translation>
    </message>
    <message>
        <source>之后的交易日未知</source>
        <translation>later trade days are unknown</translation>
    </message>
    <message>
        <source>%1（未核实）</source>
        <translation>%1 (unverified)</translation>
    </message>
    <message>
        <source>没有目标</source>
        <translation>No target</translation>
    </message>
    <message>
        <source>目标已经完成</source>
        <translation>The target is complete</translation>
    </message>
    <message>
        <source>预计%1完成，需%2个交易日</source>
        <translation>Complete on %1, after %2 trade days</translation>
    </message>
    <message>
        <source>需%1个以上交易日，期间仅%2个</source>
        <translation>Needs more than %1 trade days, the period has only %2</translation>
    </message>
    <message>
        <source>需%1个交易日，期间仅%2个</source>
        <translation>Needs %1 trade days, the period has only %2</translation>
    </message>
    <message>
        <source>每日最多%1，即目标的%2%；总股本未知，未核对连续90天减持不超过总股本1%</source>
        <translation>At most %1 a day, %2% of the target. The share capital is unknown, so its 1% limit within 90 days is not checked</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>下达</source>
        <translation>Issued</translation>
    </message>
    <message>
        <source>金额（元）</source>
        <translation>Yuan</translation>
    </message>
    <message>
        <source>剩余</source>
        <translation>Left</translation>
    </message>
    <message>
        <source>必填</source>
        <translation>required</translation>
    </message>
    <message>
        <source>客户%1尚未签署</source>
        <translation>client %1 has not signed</translation>
    </message>
    <message>
        <source>应为%1的正整数倍</source>
        <translation>should be a positive multiple of %1</translation>
    </message>
    <message>
        <source>含有特殊字符%1</source>
        <translation>contains the special character %1</translation>
    </message>
    <message>
        <source>算法的交易账号与计划不一致</source>
        <translation>the algorithm&apos;s account differs from the plan&apos;s</translation>
    </message>
    <message>
        <source>算法的交易方向与计划不一致</source>
        <translation>the algorithm&apos;s side differs from the plan&apos;s</translation>
    </message>
    <message>
        <source>该算法不支持不限价</source>
        <translation>the algorithm needs a price limit</translation>
    </message>
    <message>
        <source>小于已成交和在下达的%1</source>
        <translation>less than %1, which is filled or being issued</translation>
    </message>
    <message>
        <source>计划已开始，开始日期应为%1</source>
        <translation>the plan has begun, its first day should be %1</translation>
    </message>
    <message>
        <source>结束日期早于今日</source>
        <translation>the last day is before today</translation>
    </message>
    <message>
        <source>不是%1的整数倍</source>
        <translation>not a multiple of %1</translation>
    </message>
    <message>
        <source>可卖只有%1</source>
        <translation>only %1 can be sold</translation>
    </message>
    <message>
        <source>风险揭示</source>
        <translation>Risk disclosure</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>指令类型</source>
        <translation>Instruction type</translation>
    </message>
    <message>
        <source>证券代码</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>目标总量</source>
        <translation>Target</translation>
    </message>
    <message>
        <source>目标的倍数</source>
        <translation>Multiple of the target</translation>
    </message>
    <message>
        <source>每日计划量</source>
        <translation>Daily quantity</translation>
    </message>
    <message>
        <source>每日的倍数</source>
        <translation>Multiple of the day</translation>
    </message>
    <message>
        <source>减持占比</source>
        <translation>Ratio</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>价格的字符</source>
        <translation>Characters of the price</translation>
    </message>
    <message>
        <source>价格2</source>
        <translation>Price 2</translation>
    </message>
    <message>
        <source>价格2的字符</source>
        <translation>Characters of price 2</translation>
    </message>
    <message>
        <source>执行人</source>
        <translation>Executor</translation>
    </message>
    <message>
        <source>下单模式</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>算法参数</source>
        <translation>Algorithm</translation>
    </message>
    <message>
        <source>算法与计划</source>
        <translation>Algorithm and plan</translation>
    </message>
    <message>
        <source>算法与价格</source>
        <translation>Algorithm and price</translation>
    </message>
    <message>
        <source>目标与已用</source>
        <translation>Target and used</translation>
    </message>
    <message>
        <source>已开始的计划</source>
        <translation>Plan that has begun</translation>
    </message>
    <message>
        <source>目标的每手</source>
        <translation>Step of the target</translation>
    </message>
    <message>
        <source>每日的每手</source>
        <translation>Step of the day</translation>
    </message>
    <message>
        <source>持仓可用</source>
        <translation>Holdings</translation>
    </message>
    <message>
        <source>证券状态</source>
        <translation>State of the security</translation>
    </message>
    <message>
        <source>没有可用的价格：%1</source>
        <translation>No usable price: %1</translation>
    </message>
    <message>
        <source>不限价，以下按昨收价%1估算</source>
        <translation>No limit; estimated with the last close %1</translation>
    </message>
    <message>
        <source>结果%1，%2</source>
        <translation>Result %1, %2</translation>
    </message>
    <message>
        <source>结果%1，不在最小价位上，按%2</source>
        <translation>Result %1, between two ticks, taken as %2</translation>
    </message>
    <message>
        <source>结果%1</source>
        <translation>Result %1</translation>
    </message>
    <message>
        <source>高于涨停价，按%1</source>
        <translation>above the upper limit, taken as %1</translation>
    </message>
    <message>
        <source>低于跌停价，按%1</source>
        <translation>below the lower limit, taken as %1</translation>
    </message>
    <message>
        <source>没有</source>
        <translation>none</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>数值</source>
        <translation>Value</translation>
    </message>
    <message>
        <source>未通过</source>
        <translation>failed</translation>
    </message>
    <message>
        <source>将询问</source>
        <translation>will be asked</translation>
    </message>
    <message>
        <source>提醒</source>
        <translation>warning</translation>
    </message>
    <message>
        <source>正在读取……</source>
        <translation>reading...</translation>
    </message>
    <message>
        <source>通过</source>
        <translation>passed</translation>
    </message>
    <message>
        <source>不适用</source>
        <translation>not applicable</translation>
    </message>
    <message>
        <source>%1：%2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>%1（提醒）</source>
        <translation>%1 (warning)</translation>
    </message>
    <message>
        <source>计划服务</source>
        <translation>Plan service</translation>
    </message>
    <message>
        <source>%1%2项</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>没有发现问题</source>
        <translation>No problems found</translation>
    </message>
    <message>
        <source>，</source>
        <translation>, </translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>检查</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Explanation</translation>
    </message>
    <message>
        <source>没有收盘价</source>
        <translation>no closing price</translation>
    </message>
    <message>
        <source>%1（%2）</source>
        <translation>%1 (%2)</translation>
    </message>
    <message>
        <source>不设涨跌停</source>
        <translation>no price limits</translation>
    </message>
    <message>
        <source>买入</source>
        <translation>buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>sell</translation>
    </message>
    <message>
        <source>%1，%2</source>
        <translation>%1, %2</translation>
    </message>
    <message>
        <source>方向相反：%1</source>
        <translation>opposite: %1</translation>
    </message>
    <message>
        <source>其他计划</source>
        <translation>Other plans</translation>
    </message>
    <message>
        <source>无</source>
        <translation>none</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>尚未选择</source>
        <translation>not chosen</translation>
    </message>
    <message>
        <source>每手</source>
        <translation>Lot</translation>
    </message>
    <message>
        <source>读取失败</source>
        <translation>Not read</translation>
    </message>
    <message>
        <source>昨收价</source>
        <translation>Last close</translation>
    </message>
    <message>
        <source>涨停 / 跌停</source>
        <translation>Limits</translation>
    </message>
    <message>
        <source>可卖数量</source>
        <translation>To sell</translation>
    </message>
    <message>
        <source>每手%1，零头%2不会下达</source>
        <translation>the lot is %1, %2 will not be issued</translation>
    </message>
    <message>
        <source>不在最小价位上，按%1</source>
        <translation>between two ticks, taken as %1</translation>
    </message>
    <message>
        <source>约%1元，是该账户通常%2元的%3倍</source>
        <translation>about %1 yuan, %3 times the usual %2 yuan of the account</translation>
    </message>
    <message>
        <source>同一证券有反向计划%1</source>
        <translation>plans in the other direction on this security: %1</translation>
    </message>
    <message>
        <source>与其他计划共卖%1，可卖只有%2</source>
        <translation>with other plans %1 would be sold, only %2 can be</translation>
    </message>
    <message>
        <source>目标的零股</source>
        <translation>Odd lot of the target</translation>
    </message>
    <message>
        <source>每日的零股</source>
        <translation>Odd lot of the day</translation>
    </message>
    <message>
        <source>价格可用</source>
        <translation>Usable price</translation>
    </message>
    <message>
        <source>最小价位</source>
        <translation>Tick</translation>
    </message>
    <message>
        <source>涨跌停</source>
        <translation>Price limits</translation>
    </message>
    <message>
        <source>通常规模</source>
        <translation>Usual size</translation>
    </message>
    <message>
        <source>反向计划</source>
        <translation>Opposite plan</translation>
    </message>
    <message>
        <source>合计持仓</source>
        <translation>Holdings for all plans</translation>
    </message>
    <message>
        <source>按期完成</source>
        <translation>Complete in time</translation>
    </message>
</context>
<context>
    <name>AdvisorPanel</name>
    <message>
        <source>顾问</source>
        <translation>Advisor</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>项目</source>
        <translation>Item</translation>
    </message>
    <message>
        <source>内容</source>
        <translation>Contents</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>点击插入价格公式</source>
        <translation>Click to insert into the price formula</translation>
    </message>
    <message>
        <source>公式中可用的名称</source>
        <translation>Names for formulas</translation>
    </message>
    <message>
        <source>检查</source>
        <translation>Checks</translation>
    </message>
    <message>
        <source>每日计划</source>
        <translation>Day by day</translation>
    </message>
    <message>
        <source>每日下达和剩余</source>
        <translation>Issued and left on each day</translation>
    </message>
</context>
<context>
    <name>CalendarPopup</name>
    <message>
        <source>上个月</source>
        <translation>Previous month</translation>
    </message>
    <message>
        <source>下个月</source>
        <translation>Next month</translation>
    </message>
    <message>
        <source>一二三四五六日</source>
        <translation>MTWTFSS</translation>
    </message>
    <message>
        <source>%1年%2月</source>
        <translation>%2/%1</translation>
    </message>
    <message>
        <source>日历，%1</source>
        <translation>Calendar, %1</translation>
    </message>
    <message>
        <source>日历</source>
        <translation>Calendar</translation>
    </message>
</context>
<context>
    <name>ClientWidget</name>
    <message>
        <source>交易客户端</source>
        <translation>Trading client</translation>
    </message>
</context>
<context>
    <name>ClientWidgets</name>
    <message>
        <source>小节标题</source>
        <translation>Section heading</translation>
    </message>
    <message>
        <source>字段标题或单位</source>
        <translation>Caption or unit of a field</translation>
    </message>
    <message>
        <source>放不下时省略的文字</source>
        <translation>Text that is elided where it does not fit</translation>
    </message>
    <message>
        <source>下拉框，可带搜索</source>
        <translation>Box, searchable if wanted</translation>
    </message>
    <message>
        <source>账户下拉框</source>
        <translation>Box of accounts</translation>
    </message>
    <message>
        <source>日期或日期区间</source>
        <translation>Date or range of dates</translation>
    </message>
    <message>
        <source>可以为空的数字，带步进按钮</source>
        <translation>Number that may be empty, with step buttons</translation>
    </message>
    <message>
        <source>可以为空的数字</source>
        <translation>Number that may be empty</translation>
    </message>
    <message>
        <source>价格公式</source>
        <translation>Price formula</translation>
    </message>
    <message>
        <source>按钮，样式为normal、highlight或text</source>
        <translation>Button in the style normal, highlight or text</translation>
    </message>
    <message>
        <source>小节标题，文字由程序设置</source>
        <translation>Section heading, its text set by the program</translation>
    </message>
    <message>
        <source>按代码或名称查找证券</source>
        <translation>Searches a security by code or name</translation>
    </message>
</context>
<context>
    <name>ComboSearchPopup</name>
    <message>
        <source>输入文字筛选</source>
        <translation>Type to narrow the list</translation>
    </message>
</context>
<context>
    <name>ConflictDialog</name>
    <message>
        <source>计划%1已被修改</source>
        <translation>Plan %1 was changed</translation>
    </message>
    <message>
        <source>您打开计划后，%1于%2保存了第%3版。请核对不同之处，选择如何继续。</source>
        <translation>After you opened the plan, %1 saved version %3 at %2. Please compare and choose how to continue.</translation>
    </message>
    <message>
        <source>不同的字段</source>
        <translation>Fields that differ</translation>
    </message>
    <message>
        <source>字段</source>
        <translation>Field</translation>
    </message>
    <message>
        <source>您打开时</source>
        <translation>When you opened it</translation>
    </message>
    <message>
        <source>现在保存的</source>
        <translation>Stored now</translation>
    </message>
    <message>
        <source>您填写的</source>
        <translation>Your input</translation>
    </message>
    <message>
        <source>读取新版本</source>
        <translation>Read the new version</translation>
    </message>
    <message>
        <source>保留我填写的</source>
        <translation>Keep my input</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>DateField</name>
    <message>
        <source>打开日历</source>
        <translation>Open the calendar</translation>
    </message>
    <message>
        <source>日历</source>
        <translation> calendar</translation>
    </message>
    <message>
        <source>周一</source>
        <translation>Mon</translation>
    </message>
    <message>
        <source>周二</source>
        <translation>Tue</translation>
    </message>
    <message>
        <source>周三</source>
        <translation>Wed</translation>
    </message>
    <message>
        <source>周四</source>
        <translation>Thu</translation>
    </message>
    <message>
        <source>周五</source>
        <translation>Fri</translation>
    </message>
    <message>
        <source>周六</source>
        <translation>Sat</translation>
    </message>
    <message>
        <source>周日</source>
        <translation>Sun</translation>
    </message>
    <message>
        <source>，按↑键或点击此处改为%1</source>
        <translation>; press Up or click here for %1</translation>
    </message>
</context>
<context>
    <name>EditorDialog</name>
    <message>
        <source>新建计划</source>
        <translation>New plan</translation>
    </message>
    <message>
        <source>修改计划 %1</source>
        <translation>Edit plan %1</translation>
    </message>
    <message>
        <source>复制计划 %1</source>
        <translation>Copy plan %1</translation>
    </message>
    <message>
        <source>计划尚未提交，关闭后填写的内容将丢失，是否关闭？</source>
        <translation>The plan has not been submitted and will be lost. Close it?</translation>
    </message>
    <message>
        <source>应为%1的整数倍</source>
        <translation>Should be a multiple of %1</translation>
    </message>
    <message>
        <source>查看不同之处</source>
        <translation>Show the differences</translation>
    </message>
    <message>
        <source>您正在修改第%1版，%2已于%3保存了第%4版。</source>
        <translation>You are editing version %1; %2 saved version %4 at %3.</translation>
    </message>
    <message>
        <source>隐藏顾问</source>
        <translation>Hide the advisor</translation>
    </message>
    <message>
        <source>显示顾问</source>
        <translation>Show the advisor</translation>
    </message>
    <message>
        <source>%1（F7）</source>
        <translation>%1 (F7)</translation>
    </message>
</context>
<context>
    <name>Error</name>
    <message>
        <source>只能输入整数</source>
        <translation>Only whole numbers</translation>
    </message>
    <message>
        <source>最多输入%1位小数</source>
        <translation>At most %1 decimals</translation>
    </message>
    <message>
        <source>数字不完整</source>
        <translation>The number is incomplete</translation>
    </message>
    <message>
        <source>不能小于%1</source>
        <translation>Cannot be less than %1</translation>
    </message>
    <message>
        <source>不能大于%1</source>
        <translation>Cannot be more than %1</translation>
    </message>
    <message>
        <source>%1早于最早可选日期%2</source>
        <translation>%1 is earlier than the first possible date, %2</translation>
    </message>
    <message>
        <source>%1晚于最晚可选日期%2</source>
        <translation>%1 is later than the last possible date, %2</translation>
    </message>
    <message>
        <source>%1不是交易日，不能选择</source>
        <translation>%1 is not a trading day and cannot be chosen</translation>
    </message>
    <message>
        <source>结束日期不能早于开始日期%1</source>
        <translation>The last date cannot be earlier than the first, %1</translation>
    </message>
    <message>
        <source>无法识别“%1”，请输入数字，例如50000、50,000或5万</source>
        <translation>“%1” is not understood; type a number, for example 50000, 50,000 or 5万</translation>
    </message>
    <message>
        <source>“%1”中的逗号有歧义，千分位须每三位一个，小数点请用“.”</source>
        <translation>The comma in “%1” is ambiguous: groups have three digits, and the decimal point is “.”</translation>
    </message>
    <message>
        <source>无法识别单位“%1”，可用千、万、百万、千万、亿</source>
        <translation>The unit “%1” is not understood; 千, 万, 百万, 千万 and 亿 are</translation>
    </message>
    <message>
        <source>此处以%1为单位，不能用%2</source>
        <translation>This field is in %1, not in %2</translation>
    </message>
    <message>
        <source>请先选择证券，才能以手为单位</source>
        <translation>Choose a security before typing lots</translation>
    </message>
    <message>
        <source>该证券不以手为单位交易，请输入%1数</source>
        <translation>This security has no lots; type the number of %1</translation>
    </message>
    <message>
        <source>无法识别“%1”，请输入日期，例如2026-12-04、1204、12-4或+5</source>
        <translation>“%1” is not understood; type a date, for example 2026-12-04, 1204, 12-4 or +5</translation>
    </message>
    <message>
        <source>没有“%1”这一天</source>
        <translation>There is no day “%1”</translation>
    </message>
    <message>
        <source>可选的交易日不足%1个</source>
        <translation>There are fewer than %1 trading days to choose from</translation>
    </message>
    <message>
        <source>%1的输入无法使用：%2</source>
        <translation>The text of %1 cannot be used: %2</translation>
    </message>
</context>
<context>
    <name>IssueSheet</name>
    <message>
        <source>买入</source>
        <translation>Buy</translation>
    </message>
    <message>
        <source>卖出</source>
        <translation>Sell</translation>
    </message>
    <message>
        <source>账户%1 %2 %3笔 %4元</source>
        <translation>Account %1: %2, %3 orders, %4 yuan</translation>
    </message>
    <message>
        <source>另有%1项</source>
        <translation>and %1 more</translation>
    </message>
    <message>
        <source>没有选择计划</source>
        <translation>No plan is chosen</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>全选</source>
        <translation>All</translation>
    </message>
    <message>
        <source>下达当日指令 - %1</source>
        <translation>Issue Today&apos;s Instructions - %1</translation>
    </message>
    <message>
        <source>正在读取当日的计划……</source>
        <translation>Reading the plans of the day…</translation>
    </message>
    <message>
        <source>今天没有要下达的计划。</source>
        <translation>There is no plan to issue today.</translation>
    </message>
    <message>
        <source>选择要下达的计划。</source>
        <translation>Choose the plans to issue.</translation>
    </message>
    <message>
        <source>下达%1条指令？
%2</source>
        <translation>Issue %1 instructions?
%2</translation>
    </message>
    <message>
        <source>正在下达……</source>
        <translation>Issuing…</translation>
    </message>
    <message>
        <source>已下达%1条，此前已下达%2个，未下达%3个。</source>
        <translation>Issued: %1. Issued before: %2. Not issued: %3.</translation>
    </message>
    <message>
        <source>其余已取消，可以再次下达。</source>
        <translation> The rest was cancelled and can be issued again.</translation>
    </message>
    <message>
        <source>其余因故未下达：%1</source>
        <translation> The rest was not issued: %1</translation>
    </message>
    <message>
        <source>下达%1条……</source>
        <translation>Issue %1…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>IssueSheetModel</name>
    <message>
        <source>已下达 %1</source>
        <translation>Issued %1</translation>
    </message>
    <message>
        <source>此前已下达</source>
        <translation>Issued before</translation>
    </message>
    <message>
        <source>未下达：%1</source>
        <translation>Not issued: %1</translation>
    </message>
    <message>
        <source>计划编号</source>
        <translation>Plan</translation>
    </message>
    <message>
        <source>账户</source>
        <translation>Account</translation>
    </message>
    <message>
        <source>证券</source>
        <translation>Security</translation>
    </message>
    <message>
        <source>方向</source>
        <translation>Side</translation>
    </message>
    <message>
        <source>价格</source>
        <translation>Price</translation>
    </message>
    <message>
        <source>数量</source>
        <translation>Quantity</translation>
    </message>
    <message>
        <source>金额（元）</source>
        <translation>Amount (yuan)</translation>
    </message>
    <message>
        <source>结果</source>
        <translation>Result</translation>
    </message>
    <message>
        <source>不限价</source>
        <translation>No limit</translation>
    </message>
    <message>
        <source>不能下达：%1</source>
        <translation>Cannot be issued: %1</translation>
    </message>
    <message>
        <source>价格按涨跌停价</source>
        <translation>At the limit price of the day</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>交易计划 - %1（%2）</source>
        <translation>Trading plans - %1 (%2)</translation>
    </message>
    <message>
        <source>新建</source>
        <translation>New</translation>
    </message>
    <message>
        <source>编辑</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>复制</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>换肤</source>
        <translation>Skin</translation>
    </message>
    <message>
        <source>下达当日指令</source>
        <translation>Issue today&apos;s instructions</translation>
    </message>
    <message>
        <source>刷新</source>
        <translation>Refresh</translation>
    </message>
    <message>
        <source>计划(&amp;P)</source>
        <translation>&amp;Plans</translation>
    </message>
    <message>
        <source>视图(&amp;V)</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>工具栏</source>
        <translation>Toolbar</translation>
    </message>
    <message>
        <source>共%1个计划</source>
        <translation>%1 plans</translation>
    </message>
    <message>
        <source>%1，上方有%2个新计划</source>
        <translation>%1, %2 new ones above</translation>
    </message>
    <message>
        <source>共%1个以上计划</source>
        <translation>%1 plans or more</translation>
    </message>
    <message>
        <source>刷新失败：%1。列表仍是%2读取的内容，可能已经过时。</source>
        <translation>The refresh has failed: %1. The list was read at %2 and may be out of date.</translation>
    </message>
    <message>
        <source>与服务器的连接已断开，正在重新连接……</source>
        <translation>The connection to the server is lost; connecting again…</translation>
    </message>
    <message>
        <source>%1最近一次失败：%2。</source>
        <translation>%1 The last attempt failed: %2.</translation>
    </message>
    <message>
        <source>连接已恢复，%1</source>
        <translation>The connection is restored, %1</translation>
    </message>
    <message>
        <source>策略文件…</source>
        <translation>Strategy files…</translation>
    </message>
</context>
<context>
    <name>MessageBox</name>
    <message>
        <source>确认</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>OrloAgreementSignWidget</name>
    <message>
        <source>签署客户</source>
        <translation>Signing clients</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>签署协议</source>
        <translation>Sign agreement</translation>
    </message>
    <message>
        <source>签署（%1）</source>
        <translation>Sign (%1)</translation>
    </message>
    <message>
        <source>签署</source>
        <translation>Sign</translation>
    </message>
    <message>
        <source>请选择签署客户！</source>
        <translation>Please choose who signs!</translation>
    </message>
</context>
<context>
    <name>OrloDateEdit</name>
    <message>
        <source>开始日期</source>
        <translation>First date</translation>
    </message>
    <message>
        <source>至</source>
        <translation>to</translation>
    </message>
    <message>
        <source>结束日期</source>
        <translation>Last date</translation>
    </message>
    <message>
        <source>日期</source>
        <translation>Date</translation>
    </message>
    <message>
        <source>结束日期已随开始日期改为%1</source>
        <translation>The last date has followed the first to %1</translation>
    </message>
</context>
<context>
    <name>OrloDoubleSpinBox</name>
    <message>
        <source>已按%1位小数取整</source>
        <translation>Rounded to %1 decimals</translation>
    </message>
    <message>
        <source>，%1</source>
        <translation>, %1</translation>
    </message>
</context>
<context>
    <name>PlanDetails</name>
    <message>
        <source>选择一个计划，查看全部内容。</source>
        <translation>Choose a plan to see all of it.</translation>
    </message>
    <message>
        <source>已下达指令</source>
        <translation>Issued instructions</translation>
    </message>
    <message>
        <source>计划内容</source>
        <translation>Contents of the plan</translation>
    </message>
    <message>
        <source>历史</source>
        <translation>History</translation>
    </message>
    <message>
        <source>最近的%1条，全部历史见命令plandesk history</source>
        <translation>The latest %1; the command plandesk history prints all</translation>
    </message>
</context>
<context>
    <name>PlanPane</name>
    <message>
        <source>全部</source>
        <translation>All</translation>
    </message>
    <message>
        <source>今日</source>
        <translation>Today</translation>
    </message>
    <message>
        <source>进行中</source>
        <translation>Running</translation>
    </message>
    <message>
        <source>异常</source>
        <translation>Failed</translation>
    </message>
    <message>
        <source>我的</source>
        <translation>Mine</translation>
    </message>
    <message>
        <source>搜索计划</source>
        <translation>Search plans</translation>
    </message>
    <message>
        <source>编号、证券代码、名称、账户（Ctrl+F）</source>
        <translation>Number, symbol, name, account (Ctrl+F)</translation>
    </message>
</context>
<context>
    <name>PlanTable</name>
    <message>
        <source>计划列表</source>
        <translation>List of plans</translation>
    </message>
</context>
<context>
    <name>PlanTableModel</name>
    <message>
        <source>单击排序</source>
        <translation>Click to sort</translation>
    </message>
</context>
<context>
    <name>QLineEdit</name>
    <message>
        <source>最多输入%1个字符</source>
        <translation>At most %1 characters</translation>
    </message>
</context>
<context>
    <name>ReasonDialog</name>
    <message>
        <source>停止计划</source>
        <translation>Stop Plans</translation>
    </message>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>停止</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>SecurityChooser</name>
    <message>
        <source>代码</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>持仓</source>
        <translation>Held</translation>
    </message>
    <message>
        <source>选择证券</source>
        <translation>Choose a security</translation>
    </message>
    <message>
        <source>代码、名称或拼音首字母</source>
        <translation>Code, name or pinyin initials</translation>
    </message>
    <message>
        <source>匹配的证券</source>
        <translation>Matching securities</translation>
    </message>
    <message>
        <source>持仓读取失败：%1</source>
        <translation>Holdings not read: %1</translation>
    </message>
    <message>
        <source>请先选择账户和指令类型</source>
        <translation>Choose an account and an instruction type first</translation>
    </message>
    <message>
        <source>证券列表正在准备，请稍候</source>
        <translation>The list of securities is being prepared, please wait</translation>
    </message>
    <message>
        <source>没有匹配的证券</source>
        <translation>No security matches</translation>
    </message>
</context>
<context>
    <name>StateActions</name>
    <message>
        <source>……共%1个计划</source>
        <translation>… %1 plans in total</translation>
    </message>
    <message>
        <source>暂停</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>恢复</source>
        <translation>Resume</translation>
    </message>
    <message>
        <source>停止……</source>
        <translation>Stop…</translation>
    </message>
    <message>
        <source>归档</source>
        <translation>Archive</translation>
    </message>
    <message>
        <source>全部暂停……</source>
        <translation>Pause All…</translation>
    </message>
    <message>
        <source>停止%1个计划后不能恢复，也不能再修改。</source>
        <translation>%1 plans will be stopped. They cannot be resumed or changed afterwards.</translation>
    </message>
    <message>
        <source>暂停账户%1的全部计划？</source>
        <translation>Pause all plans of account %1?</translation>
    </message>
    <message>
        <source>正在变更计划的状态……</source>
        <translation>Changing the plans&apos; states…</translation>
    </message>
    <message>
        <source>取消</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>已变更%1个计划……</source>
        <translation>%1 plans changed…</translation>
    </message>
    <message>
        <source>%1个计划%2</source>
        <translation>%1 plans: %2</translation>
    </message>
    <message>
        <source>，其余已取消</source>
        <translation>, the rest was cancelled</translation>
    </message>
</context>
<context>
    <name>StrategySheet</name>
    <message>
        <source>原因</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>提示</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>策略文件</source>
        <translation>Strategy files</translation>
    </message>
    <message>
        <source>名称</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>状态</source>
        <translation>State</translation>
    </message>
    <message>
        <source>说明</source>
        <translation>Remarks</translation>
    </message>
    <message>
        <source>选择文件夹…</source>
        <translation>Choose folder…</translation>
    </message>
    <message>
        <source>关闭</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>只用内置算法</source>
        <translation>Built-in algorithms only</translation>
    </message>
    <message>
        <source>没有选择策略文件夹，只有内置的算法。</source>
        <translation>No folder of strategy files is chosen; only the built-in algorithms are offered.</translation>
    </message>
    <message>
        <source>文件夹：%1</source>
        <translation>Folder: %1</translation>
    </message>
    <message>
        <source>已读取</source>
        <translation>Read</translation>
    </message>
    <message>
        <source>拒绝</source>
        <translation>Refused</translation>
    </message>
    <message>
        <source>选择策略文件夹</source>
        <translation>Choose the folder of strategy files</translation>
    </message>
</context>
<context>
    <name>VorSearchBox</name>
    <message>
        <source>没有匹配的证券</source>
        <translation>No security matches</translation>
    </message>
    <message>
        <source>有多只证券匹配，请从列表中选择</source>
        <translation>Several securities match; please choose one from the list</translation>
    </message>
    <message>
        <source>请至少输入%1个字符</source>
        <translation>Please type at least %1 characters</translation>
    </message>
    <message>
        <source>输入证券代码或名称查找</source>
        <translation>Type a code or a name to search</translation>
    </message>
    <message>
        <source>证券列表正在准备，请稍候</source>
        <translation>The list of securities is being prepared, please wait</translation>
    </message>
</context>
</TS>
